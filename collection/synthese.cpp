// Collections out of nothing: as many documents as one likes, always the same for the same options.
#include "collection/collection.h"
#include "collection/temporaire.h"
#include "collection/vocabulaire.h"
#include "core/texte.h"

#include <QDate>
#include <QElapsedTimer>

#include <algorithm>

namespace velm {
namespace {

using namespace Qt::Literals::StringLiterals;

constexpr qint64 plusdedocuments = 2'000'000;
constexpr qint64 grandecollection = 200'000;
constexpr int motsordinaires = 460;
constexpr int motscourts = 70;
constexpr double millisecondesparseconde = 1000;

/// Share of each collection in a thousand, in the order of the eleven.
constexpr std::array<qint64, nombredecollections> parts = {60, 30, 120, 400, 80, 110, 60, 40, 30, 30, 40};
constexpr qint64 documentsparnoeud = 25;

/// Two words whose documents are counted out: 57,114 and 19,607 of 100,000.
const QString motfrequent = u"consommateur"_s;
const QString motmoyen = u"garantie"_s;
constexpr quint64 tauxfrequent = 57114;
constexpr quint64 tauxmoyen = 19607;
constexpr quint64 tauxentier = 100000;

const QStringList genres = {
    u"Article législatif"_s, u"Article réglementaire"_s, u"Arrêt"_s,      u"Avis"_s,   u"Circulaire"_s, u"Décret"_s,
    u"Directive"_s,          u"Fiche pratique"_s,        u"Formulaire"_s, u"Rapport"_s};
const QStringList niveaux = {u"Partie"_s, u"Livre"_s, u"Titre"_s, u"Chapitre"_s, u"Section"_s, u"Sous-section"_s};

/// The tree of a collection: every leaf lies at the same depth, ancestors by division.
struct Branche {
    qint64 documents = 0;
    qsizetype premier = 0; ///< number of its first document
    qint64 feuilles = 0;
    qint64 largeur = 2; ///< children of a node
    int profondeur = 4;
    std::array<qint64, 7> premiernoeud{}; ///< number of the first node at each depth from 1
};

enum class Usage : quint64 { Entete, Corps, Noeud, Frequent, Moyen };

class ProvenanceInventee : public Provenance {
public:
    explicit ProvenanceInventee(const OptionsSynthese& options) : options_(options), sections_(sectionspardefaut()) {
        plante();
        for (const QString& genre : genres)
            types_.push_back({static_cast<qint64>(types_.size()) + 1, genre});
    }

    qsizetype nombre() const override { return static_cast<qsizetype>(options_.documents); }

    CleDocument cle(qsizetype i) const override {
        const int collection = collectionde(i);
        return cledocument(collection, static_cast<int>(i - branche(collection).premier) + 1);
    }

    qsizetype cherche(CleDocument cle) const override {
        const int collection = collectiondelacle(cle);
        const int numero = numerodelacle(cle);
        if (collection >= nombredecollections || numero < 1 || numero > branche(collection).documents)
            return -1;
        return branche(collection).premier + numero - 1;
    }

    Entete entete(qsizetype i) const override {
        Alea alea = tirage(Usage::Entete, i);
        Entete e;
        e.cle = cle(i);
        const Branche& b = branche(collectiondelacle(e.cle));
        e.noeud = noeudde(b, i);
        e.numarticle = article(i);
        const QDate jour(1960 + static_cast<int>(alea.sous(64)), 1 + static_cast<int>(alea.sous(12)),
                         1 + static_cast<int>(alea.sous(28)));
        e.numtitre = QString::number(jour.year()) + u'-' + QString::number(1 + alea.sous(1500));
        e.titre = u"Code "_s + nomde(collectiondelacle(e.cle)) + u", art. "_s + e.numarticle + u" : "_s +
                  vocabulaire_.nom(alea) + u" et "_s + vocabulaire_.nom(alea);
        e.titretexte = u"Loi n° "_s + e.numtitre + u" du "_s + jour.toString(u"dd/MM/yyyy");
        if (!alea.surmille(20))
            e.date = jour.toString(Qt::ISODate);
        if (alea.surmille(100))
            e.datemodif = jour.addDays(static_cast<qint64>(alea.sous(900))).toString(Qt::ISODate);
        e.source = u"Journal officiel du "_s + jour.toString(u"dd/MM/yyyy");
        e.type = genres[static_cast<qsizetype>(alea.sous(static_cast<quint64>(genres.size())))];
        e.motscles = {nomde(collectiondelacle(e.cle)), motclecourant(alea), motclecourant(alea)};
        return e;
    }

    Corps corps(qsizetype i) const override {
        Corps corps;
        Alea alea = tirage(Usage::Corps, i);
        const Branche& b = branche(collectionde(i));
        corps.paragraphes.push_back({StyleSource::Titre, noeuds_[static_cast<std::size_t>(noeudde(b, i) - 1)].libelle});
        corps.paragraphes.push_back({StyleSource::Article, u"Article "_s + article(i)});
        // Two fifths to eight fifths of the average.
        qint64 reste = options_.mots * (2 + static_cast<qint64>(alea.sous(7))) / 5 + 4;
        QString reserve = reserveede(i);
        while (reste > 0) {
            const qint64 mots = std::min<qint64>(reste, 20 + static_cast<qint64>(alea.sous(100)));
            QString texte = alinea(alea, i, mots);
            if (!reserve.isEmpty()) {
                texte += u" Ainsi pour : "_s + reserve + u'.';
                reserve.clear();
            }
            const StyleSource style = alea.surmille(30)   ? StyleSource::Note
                                      : alea.surmille(60) ? StyleSource::Liste
                                                          : StyleSource::Alinea;
            corps.paragraphes.push_back({style, texte});
            reste -= mots;
        }
        if (alea.surmille(20))
            tableau(alea, corps);
        return corps;
    }

    Probleme lieu(qsizetype) const override { return {}; }
    const std::vector<Noeud>& noeuds() const override { return noeuds_; }
    const std::vector<TypeDeDocument>& types() const override { return types_; }
    const Sections& sections() const override { return sections_; }

private:
    static Alea tirage(Usage usage, qint64 numero) {
        Alea alea(static_cast<quint64>(numero) * 8 + static_cast<quint64>(usage));
        return Alea(alea.suivant());
    }

    const Branche& branche(int collection) const { return branches_[static_cast<std::size_t>(collection)]; }

    int collectionde(qsizetype i) const {
        int trouvee = collectionsparcode().front();
        for (const int collection : collectionsparcode()) {
            if (branche(collection).documents > 0 && branche(collection).premier <= i)
                trouvee = collection;
        }
        return trouvee;
    }

    static QString nomde(int collection) { return u"de la collection "_s + typedindice(collection); }

    qint64 noeudde(const Branche& b, qsizetype i) const {
        return b.premiernoeud[static_cast<std::size_t>(b.profondeur)] + (i - b.premier) * b.feuilles / b.documents;
    }

    QString article(qsizetype i) const {
        const qint64 rang = i - branche(collectionde(i)).premier;
        return QString(QLatin1Char("LRDA"[rang / 5000 % 4])) + QString::number(111 + rang / 40) + u'-' +
               QString::number(1 + rang % 40);
    }

    QString motclecourant(Alea& alea) const {
        // Three draws, the least of them: some keywords are borne by many documents.
        Alea choix(7 + std::min({alea.sous(3000), alea.sous(3000), alea.sous(3000)}));
        return vocabulaire_.nom(choix) + u' ' + vocabulaire_.nom(choix);
    }

    /// The counted words that this document holds.
    static QString reserveede(qsizetype i) {
        QString texte;
        if (tirage(Usage::Frequent, i).sous(tauxentier) < tauxfrequent)
            texte = motfrequent;
        if (tirage(Usage::Moyen, i).sous(tauxentier) < tauxmoyen)
            texte += (texte.isEmpty() ? QString() : u", "_s) + motmoyen;
        return texte;
    }

    QString alinea(Alea& alea, qsizetype i, qint64 mots) const {
        QString texte;
        texte.reserve(static_cast<qsizetype>(mots) * 9);
        bool debut = true;
        for (qint64 m = 0; m < mots; ++m) {
            const quint64 de = alea.sous(100);
            if (!debut)
                texte += de < 8 ? u", "_s : u" "_s;
            if (de >= 97)
                texte += u"l’"_s;
            const qsizetype place = texte.size();
            if (de == 50)
                lien(alea, i, texte);
            else if (de == 51 && alea.sous(4) == 0)
                texte += vocabulaire_.bro(alea);
            else if (de == 52)
                texte += u"**"_s + vocabulaire_.mot(alea) + u"**"_s;
            else
                texte += vocabulaire_.mot(alea);
            if (debut)
                texte[place] = texte[place].toUpper();
            debut = de >= 9 && de < 14;
            if (debut)
                texte += u". "_s;
        }
        texte += u'.';
        return texte;
    }

    /// Mostly to a near document of the same collection.
    void lien(Alea& alea, qsizetype i, QString& texte) const {
        qsizetype cible = static_cast<qsizetype>(alea.sous(static_cast<quint64>(options_.documents)));
        if (!alea.surmille(150)) {
            const Branche& b = branche(collectionde(i));
            const qint64 pas = static_cast<qint64>(alea.sous(200)) - 100;
            cible = std::clamp<qsizetype>(i + pas, b.premier, b.premier + b.documents - 1);
        }
        texte += u"l'article {L="_s + article(cible) + u'|' + textedelacle(cle(cible)) + u'}';
    }

    void tableau(Alea& alea, Corps& corps) const {
        const int colonnes = 2 + static_cast<int>(alea.sous(4));
        for (quint64 rangee = 0; rangee < 3 + alea.sous(6); ++rangee) {
            QString texte;
            for (int c = 0; c < colonnes; ++c)
                texte +=
                    (c > 0 ? u"\t"_s : QString()) + vocabulaire_.nom(alea) + u' ' + QString::number(alea.sous(999));
            corps.paragraphes.push_back({StyleSource::Tableau, texte});
        }
    }

    void plante() {
        qint64 reste = options_.documents;
        for (std::size_t c = 0; c < branches_.size(); ++c) {
            branches_[c].documents = std::min(reste, options_.documents * parts[c] / 1000);
            reste -= branches_[c].documents;
        }
        branches_[0].documents += reste;
        qsizetype premier = 0;
        for (const int collection : collectionsparcode()) {
            Branche& b = branches_[static_cast<std::size_t>(collection)];
            b.premier = premier;
            premier += b.documents;
            if (b.documents > 0)
                pousse(collection, b);
        }
    }

    void pousse(int collection, Branche& b) {
        b.profondeur = 4 + collection % 3;
        b.feuilles = 1 + (b.documents - 1) / documentsparnoeud;
        const auto tient = [&] {
            qint64 feuilles = 1;
            for (int d = 0; d < b.profondeur; ++d)
                feuilles *= b.largeur;
            return feuilles >= b.feuilles;
        };
        while (!tient())
            ++b.largeur;
        std::array<qint64, 7> sous{}; // leaves below a node at each depth
        sous[static_cast<std::size_t>(b.profondeur)] = 1;
        for (auto d = static_cast<std::size_t>(b.profondeur); d > 0; --d)
            sous[d - 1] = sous[d] * b.largeur;
        for (std::size_t d = 1; d <= static_cast<std::size_t>(b.profondeur); ++d) {
            b.premiernoeud[d] = static_cast<qint64>(noeuds_.size()) + 1;
            const qint64 nombre = 1 + (b.feuilles - 1) / sous[d];
            for (qint64 k = 0; k < nombre; ++k) {
                Alea alea = tirage(Usage::Noeud, static_cast<qint64>(noeuds_.size()));
                Noeud noeud;
                noeud.numero = static_cast<qint64>(noeuds_.size()) + 1;
                noeud.parent = d == 1 ? 0 : b.premiernoeud[d - 1] + k / b.largeur;
                noeud.collection = collection;
                noeud.ordre = k % b.largeur + 1;
                noeud.libelle = niveaux[static_cast<qsizetype>(d - 1)] + u' ' + QString::number(noeud.ordre) +
                                u" : "_s + vocabulaire_.nom(alea) + u" et "_s + vocabulaire_.nom(alea);
                noeuds_.push_back(noeud);
            }
        }
    }

    OptionsSynthese options_;
    Vocabulaire vocabulaire_;
    Sections sections_;
    std::array<Branche, nombredecollections> branches_;
    std::vector<Noeud> noeuds_;
    std::vector<TypeDeDocument> types_;
};

} // namespace

OptionsSynthese optionssynthese(qint64 documents) {
    return {documents, documents > grandecollection ? motscourts : motsordinaires};
}

ResultatCompilation synthese(const OptionsSynthese& options, const QString& base, const Progres& progres) {
    QElapsedTimer temps;
    temps.start();
    if (options.documents < 1 || options.documents > plusdedocuments) {
        ResultatCompilation resultat;
        resultat.etat = ResultatCompilation::Etat::SourceIncorrecte;
        resultat.problemes.push_back({Texte::NumeroHorsLimites, false, {}, 0, {QString::number(options.documents)}});
        return resultat;
    }
    const ProvenanceInventee provenance(options);
    ResultatCompilation resultat = fabrique(provenance, base, {}, progres, options.textes);
    resultat.secondes = static_cast<double>(temps.elapsed()) / millisecondesparseconde;
    return resultat;
}

} // namespace velm
