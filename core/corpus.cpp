#include "core/corpus.h"

#include "core/noms.h"
#include "core/schemas.h"
#include "platform/base/failure.h"
#include "platform/engine/rowreader.h"
#include "platform/text/ansi.h"
#include "platform/text/number.h"

namespace velm {

using namespace Qt::Literals::StringLiterals;

Corpus::Corpus() = default;

Corpus::~Corpus() {
    fermebase();
}

OpenError Corpus::connecte(const QString& chemin) {
    fermebase();
    auto ouverte = Database::open(chemin, OpenMode::Shared, corpusSchema());
    if (!ouverte.database)
        ouverte = Database::open(chemin, OpenMode::ExclusiveReadOnly, corpusSchema());
    base_ = std::move(ouverte.database);
    echec_ = {ouverte.obstacle, ouverte.message};
    return ouverte.error;
}

void Corpus::ouvretables() {
    Database& ouverte = base();
    donnees_ = ouverte.openTable(u"données"_s);
    arborescences_ = ouverte.openTable(u"arborescences"_s);
    parametres_ = ouverte.openTable(u"paramètres"_s);
    motcles_ = ouverte.openTable(u"motclés"_s);
    if (motcles_->usable())
        motcles_->setIndex(u"primarykey"_s);
    typedocument_ = ouverte.openTable(u"typedocument"_s);
    liens_ = ouverte.openTable(u"liens"_s);
    dico_ = ouverte.openTable(u"dico"_s);
    generelien_ = ouverte.openTable(u"generelien"_s);
}

void Corpus::fermebase() {
    motcles_.reset();
    parametres_.reset();
    arborescences_.reset();
    donnees_.reset();
    typedocument_.reset();
    dico_.reset();
    generelien_.reset();
    // `liens` has no closing of its own: it goes with the base.
    if (base_)
        base_->close();
    liens_.reset();
    base_.reset();
    nombres_.reset();
}

bool Corpus::updatable() const {
    return base_ && base_->updatable();
}

QString Corpus::chemin() const {
    return base_ ? base_->path() : QString();
}

Database& Corpus::base() const {
    if (!base_)
        runtimeError(Failure::Engine, {noms::base.toString()});
    return *base_;
}

Recordset& Corpus::table(const Table& table, QStringView nom) const {
    if (!table)
        runtimeError(Failure::MissingTable, {nom.toString()});
    return *table;
}

const Recordset* Corpus::rangee(const Cle& cle) const {
    Recordset& rs = donnees();
    rs.setIndex(u"primarykey"_s);
    rs.seek(Seek::Equal, cle.code, cle.numero);
    return rs.noMatch() ? nullptr : &rs;
}

std::optional<Notice> Corpus::document(const Cle& cle) const {
    const Recordset* rs = rangee(cle);
    if (!rs)
        return std::nullopt;
    const QString couleur = u"BackColor"_s;
    return Notice{.titre = rs->text(u"titre"_s),
                  .motcle1 = rs->text(u"motclé1"_s),
                  .motcle2 = rs->text(u"motclé2"_s),
                  .motcle3 = rs->text(u"motclé3"_s),
                  .Source = rs->text(u"Source"_s),
                  .datetext = rs->text(u"Date"_s),
                  .datecreation = rs->text(u"datecreation"_s),
                  .datemodif = rs->text(u"datemodif"_s),
                  .typedocument = rs->text(u"typededocument"_s),
                  .numeroarborescence = rs->text(u"numeroarborescence"_s),
                  .couleur = rs->isNull(couleur) ? std::nullopt : std::optional(static_cast<int>(rs->number(couleur)))};
}

std::optional<QByteArray> Corpus::corps(const Cle& cle) const {
    const Recordset* rs = rangee(cle);
    return rs ? std::optional(rs->bytes(u"contenu"_s)) : std::nullopt;
}

qint64 Corpus::compterarticles(QStringView code) const {
    const qsizetype position = codestypes.indexOf(code) + 1;
    if (position <= 0 || code.isEmpty())
        return 0;
    Recordset& rs = parametres();
    rs.moveFirst();
    return static_cast<qint64>(val(QStringView(rs.text(u"nbarticles"_s)).mid(3 * position - 3, 6)));
}

QHash<QString, qint64> Corpus::compte() const {
    QHash<QString, qint64> nombres;
    if (!base_)
        return nombres;
    // What is only told beside a name ends nothing where the base is damaged.
    failureOf([&] {
        const auto lignes = base_->openQuery(u"SELECT référence, COUNT(*) FROM données GROUP BY référence"_s);
        for (; lignes && !lignes->eof(); lignes->moveNext())
            nombres.insert(lignes->text(0).toUpper(), lignes->number(1));
    });
    return nombres;
}

qint64 Corpus::nombrededocuments(QStringView code) const {
    if (!nombres_)
        nombres_ = compte();
    return nombres_->value(code.toString());
}

QString Corpus::titre() const {
    if (!base_)
        return {};
    // A base may be older than the field, or damaged there: that ends nothing.
    RowReader parametres(*base_, u"paramètres"_s, {u"titre"_s});
    return parametres.read(1) == RowReader::Found::Row ? ansi::decode(parametres.bytes(0)).simplified() : QString();
}

} // namespace velm
