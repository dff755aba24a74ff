#include "search/listechrono.h"

#include "platform/engine/rowreader.h"
#include "platform/text/number.h"

#include <QLocale>

#include <algorithm>

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

const QString champdate = u"Date"_s;
constexpr qsizetype chiffresdelannee = 4;

/// The parts of a text that is written as a date, whether a calendar has it or not; none of any other text.
QStringList parties(const QString& date) {
    const QStringList morceaux = date.split(u'-');
    const auto chiffres = [](const QString& morceau) { return wholeNumber(morceau).has_value(); };
    return morceaux.size() == 3 && std::ranges::all_of(morceaux, chiffres) ? morceaux : QStringList();
}

QString sanszeros(const QString& chiffres) {
    return QString::number(wholeNumber(chiffres).value_or(0));
}

/// A year of four figures, which a date begins with; nothing for any other text.
std::optional<int> anneeentiere(const QString& date) {
    const QString debut = date.left(chiffresdelannee);
    const bool chiffres = debut.size() == chiffresdelannee &&
                          std::ranges::all_of(debut, [](QChar un) { return un >= u'0' && un <= u'9'; });
    return chiffres && date.mid(chiffresdelannee, 1) == u"-" ? std::optional(debut.toInt()) : std::nullopt;
}

QString quatrechiffres(int annee) {
    return QString::number(annee).rightJustified(chiffresdelannee, u'0');
}

/// Behind the last of the rows from one on that are as it is; such rows stand together.
template <typename Memes>
int derriere(int row, int rows, const Memes& memes) {
    int saut = 1;
    int bas = row;
    while (bas + saut < rows && memes(bas + saut)) {
        bas += saut;
        saut *= 2;
    }
    int haut = std::min(bas + saut, rows);
    while (bas + 1 < haut) {
        const int milieu = bas + (haut - bas) / 2;
        (memes(milieu) ? bas : haut) = milieu;
    }
    return bas + 1;
}

std::vector<ColonneCorpus> colonnesdates(const ListeChrono::NomDuMois& nom) {
    return {{champdate, &partiesdate::annee, true},
            {champdate,
             [nom](const QString& date) {
                 const int mois = partiesdate::mois(date);
                 return mois == 0 ? parties(date).value(1) : nom(mois);
             }},
            {champdate, &partiesdate::jour, true},
            {u"titre"_s},
            {u"motclé1"_s},
            {u"motclé2"_s},
            {u"motclé3"_s},
            {u"référence"_s}};
}

QString entreapostrophes(QString texte) {
    return u'\'' + texte.replace(u'\'', u"''"_s) + u'\'';
}

/// Every document of the base is of one of the chosen collections: none needs to be looked at for that.
bool toutessontvoulues(const Corpus& corpus, const TypesChoisis& types) {
    const auto sans =
        corpus.base().openQuery(u"SELECT 1 FROM données WHERE référence IS NULL OR référence='' LIMIT 1"_s);
    const QStringList voulues = types.liste();
    const QStringList codes = collectionsdelabase(corpus);
    return sans && sans->eof() &&
           std::ranges::all_of(codes, [&](const QString& code) { return voulues.contains(code, Qt::CaseInsensitive); });
}

QString sourcechrono(const Corpus& corpus, const TypesChoisis& types, const IntervalleDates& intervalle) {
    // A date that begins with the bound is counted, whatever follows.
    constexpr QChar derriere(0xffff);
    QString source = u" FROM données WHERE Date>''"_s;
    if (!intervalle.de.isEmpty())
        source += u" AND Date>="_s + entreapostrophes(intervalle.de);
    if (!intervalle.a.isEmpty())
        source += u" AND Date<="_s + entreapostrophes(intervalle.a + derriere);
    if (toutessontvoulues(corpus, types))
        return source;
    // Not a list of codes: the engine would take the index of the keys, and the order of the dates is wanted.
    return source + u" AND +référence>'' AND instr('"_s + types.codes() + u"',upper(référence))>0"_s;
}

} // namespace

QString partiesdate::annee(const QString& date) {
    const QStringList morceaux = parties(date);
    return morceaux.isEmpty() ? date : sanszeros(morceaux.at(0));
}

int partiesdate::mois(const QString& date) {
    const qint64 mois = wholeNumber(parties(date).value(1)).value_or(0);
    return mois >= 1 && mois <= 12 ? static_cast<int>(mois) : 0;
}

QString partiesdate::jour(const QString& date) {
    const QStringList morceaux = parties(date);
    return morceaux.isEmpty() ? QString() : sanszeros(morceaux.at(2));
}

QString ListeChrono::nomdumois(int mois) {
    return QLocale::system().standaloneMonthName(mois);
}

ModeleColonnes ListeChrono::modele() {
    return {.colonnes = {{9, 700, Texte::ColonneAnnee},
                         {8, 1000, Texte::ColonneMois},
                         {7, 700, Texte::ColonneJour},
                         {0, 3000, Texte::Titre, 3},
                         {1, 2000, Texte::ColonneMotCle1, 1},
                         {2, 2000, Texte::ColonneMotCle2, 1},
                         {3, 2000, Texte::ColonneMotCle3, 1},
                         {6, 0, {}}}};
}

ListeChrono::ListeChrono(Corpus& corpus, const TypesChoisis& types, const IntervalleDates& intervalle,
                         const NomDuMois& nom)
    : ListeCorpus(corpus, colonnesdates(nom), sourcechrono(corpus, types, intervalle),
                  u" ORDER BY Date, référence, numart"_s, Annee) {}

std::unique_ptr<Ouvrage> ListeChrono::remplissage() {
    corpus().donnees().setIndex(u"idate"_s);
    return ListeCorpus::remplissage();
}

QString ListeChrono::text(int row, int column) const {
    return column == Clef ? cle(row).texte() : ListeCorpus::text(row, column);
}

std::vector<AnneeChrono> ListeChrono::annees() const {
    std::vector<AnneeChrono> toutes;
    if (!dansleurordre() || !corpus().connecte())
        return toutes;
    RowReader lecteur(corpus().base(), u"données"_s, {champdate});
    const auto date = [&](int row) {
        const bool lue = lecteur.read(ids()[static_cast<std::size_t>(row)]) == RowReader::Found::Row;
        return lue ? QString::fromLatin1(lecteur.bytes(0)) : QString();
    };
    for (int row = 0; row < rowCount();) {
        const QString debut = date(row).left(chiffresdelannee);
        const int suivante = derriere(row, rowCount(), [&](int autre) { return date(autre).startsWith(debut); });
        if (const auto annee = anneeentiere(date(row)))
            toutes.push_back({*annee, suivante - row, row});
        row = suivante;
    }
    return toutes;
}

int ListeChrono::premiere(int annee, int derniere) const {
    if (!corpus().connecte())
        return -1;
    const auto lignes = corpus().base().openQuery(u"SELECT rowid FROM données WHERE Date>=?1 AND Date<?2"_s,
                                                  {quatrechiffres(annee) + u'-', quatrechiffres(derniere) + u'.'});
    std::vector<qint64> delannee;
    if (lignes)
        lignes->takeNumbers(delannee, std::numeric_limits<qsizetype>::max());
    std::ranges::sort(delannee);
    for (int row = 0; row < rowCount(); ++row) {
        if (std::ranges::binary_search(delannee, ids()[static_cast<std::size_t>(row)]))
            return row;
    }
    return -1;
}

std::optional<int> ListeChrono::find(int column, const QString& beginning, int from) const {
    if (column != Annee || !dansleurordre())
        return ListeCorpus::find(column, beginning, from);
    for (const AnneeChrono& une : annees()) {
        if (une.premiere + une.nombre > from && QString::number(une.annee).startsWith(beginning))
            return std::max(une.premiere, from);
    }
    return -1;
}

} // namespace velm
