#include "collection/fabrique.h"

#include "collection/chaine.h"
#include "collection/corps.h"
#include "collection/mots.h"
#include "platform/engine/recordset.h"
#include "platform/engine/rowreader.h"
#include "platform/richtext/foldtext.h"
#include "platform/richtext/rtf.h"
#include "platform/text/letters.h"

#include <QHash>
#include <QVariant>

#include <algorithm>
#include <map>

namespace velm {
namespace {

using namespace Qt::Literals::StringLiterals;

constexpr int beatdesprogres = 256;

QVariant ounul(const QString& texte) {
    return texte.isEmpty() ? QVariant() : QVariant(texte);
}

QVariant code(CleDocument cle) {
    return typedindice(collectiondelacle(cle));
}

QVariant numart(CleDocument cle) {
    return sixchiffres(numerodelacle(cle));
}

struct Produit {
    QByteArray contenu;
    std::vector<CleDocument> liens;
    Problemes problemes;
};

/// A row of the table of article numbers that waits for its place.
struct Article {
    QByteArray cle;
    qsizetype document = 0;
};

class Fabrique {
public:
    Fabrique(const Provenance& provenance, Database& base, const Progres& progres, bool textes)
        : provenance_(provenance), base_(base), progres_(progres), avectextes_(textes) {}

    BilanDeFabrique fait() {
        std::vector<std::unique_ptr<Repertoire>> repertoires;
        if (!base_.begin())
            echoue();
        entetes();
        documents(repertoires);
        if (correct_ && bon_) {
            dictionnaire(repertoires);
            motscles();
            articles();
            arborescence();
            parametres();
            if (avectextes_)
                textes();
        }
        if (correct_ && bon_ && !base_.commit())
            echoue();
        bilan_.ecrit = correct_ && bon_;
        return std::move(bilan_);
    }

private:
    void ecrit(TableWriter& table, const std::vector<QVariant>& valeurs) {
        if (bon_ && !table.add(valeurs))
            echoue();
    }

    void termine(TableWriter& table) {
        if (bon_ && !table.finish())
            echoue();
    }

    /// The first failure is the one to tell of: what follows it fails for its sake.
    void echoue() {
        bon_ = false;
        bilan_.raison = base_.lastError();
        bilan_.obstacle = base_.obstacle();
    }

    void annonce(Etape etape, qint64 fait, qint64 total) {
        if (progres_ && (fait % beatdesprogres == 0 || fait == total))
            progres_(etape, fait, total);
    }

    void documents(std::vector<std::unique_ptr<Repertoire>>& repertoires) {
        const int ouvriers = nombredouvriers();
        std::vector<std::unique_ptr<FaiseurDeCorps>> faiseurs;
        std::vector<CorpsFait> corps(static_cast<std::size_t>(ouvriers));
        for (int k = 0; k < ouvriers; ++k) {
            repertoires.push_back(std::make_unique<Repertoire>());
            faiseurs.push_back(std::make_unique<FaiseurDeCorps>(provenance_));
        }
        // In a table of its own, behind the short rows: a walk over those then reads nothing else.
        TableWriter contenus(base_, u"données_contenu"_s, {u"contenu"_s});
        TableWriter liens(base_, u"liens"_s,
                          {u"référencedépart"_s, u"numartdépart"_s, u"référencearrivée"_s, u"numartarrivée"_s});
        enchaine<Produit>(
            provenance_.nombre(), ouvriers,
            [&](int ouvrier, qsizetype i, Produit& produit) {
                const auto k = static_cast<std::size_t>(ouvrier);
                faiseurs[k]->fait(i, corps[k]);
                repertoires[k]->note(static_cast<quint32>(i), corps[k].montre);
                produit.contenu = std::move(corps[k].contenu);
                produit.liens = std::move(corps[k].liens);
                produit.problemes = std::move(corps[k].problemes);
            },
            [&](qsizetype i, Produit& produit) { prend(i, produit, contenus, liens); });
        termine(contenus);
        termine(liens);
    }

    void prend(qsizetype i, Produit& produit, TableWriter& contenus, TableWriter& liens) {
        for (Probleme& p : produit.problemes) {
            correct_ = correct_ && p.avertissement;
            bilan_.problemes.push_back(std::move(p));
        }
        annonce(Etape::MiseEnForme, i + 1, provenance_.nombre());
        if (!correct_ || !bon_)
            return;
        ecrit(contenus, {produit.contenu});
        const CleDocument cle = provenance_.cle(i);
        for (const CleDocument cible : produit.liens)
            ecrit(liens, {code(cle), numart(cle), code(cible), numart(cible)});
        bilan_.comptes.liens += static_cast<qint64>(produit.liens.size());
    }

    /// The short fields of all documents, in the order of the keys.
    void entetes() {
        TableWriter donnees(base_, u"données"_s,
                            {u"référence"_s, u"numart"_s, u"titre"_s, u"motclé1"_s, u"motclé2"_s, u"motclé3"_s,
                             u"Source"_s, u"Date"_s, u"datecreation"_s, u"datemodif"_s, u"typededocument"_s,
                             u"numeroarborescence"_s, u"BackColor"_s});
        for (qsizetype i = 0; i < provenance_.nombre() && bon_; ++i) {
            const Entete e = provenance_.entete(i);
            ecrit(donnees, {code(e.cle), numart(e.cle), e.titre, ounul(e.motscles[0]), ounul(e.motscles[1]),
                            ounul(e.motscles[2]), ounul(e.source), ounul(e.date), ounul(e.datecreation),
                            ounul(e.datemodif), ounul(e.type), e.noeud, e.couleur});
            compte(i, e);
        }
        termine(donnees);
    }

    void compte(qsizetype i, const Entete& e) {
        ++bilan_.comptes.documents;
        ++bilan_.comptes.parcollection[static_cast<std::size_t>(collectiondelacle(e.cle))];
        if (e.noeud != 0)
            ++parnoeud_[e.noeud];
        for (auto motcle = e.motscles.begin(); motcle != e.motscles.end(); ++motcle) {
            // A document counts once for a keyword that it bears twice.
            if (!motcle->isEmpty() && std::find(e.motscles.begin(), motcle, *motcle) == motcle)
                ++motscles_[*motcle];
        }
        if (!e.numarticle.isEmpty() || !e.numtitre.isEmpty())
            articles_.push_back({sortKey(e.numarticle), i});
    }

    void dictionnaire(const std::vector<std::unique_ptr<Repertoire>>& repertoires) {
        annonce(Etape::Classement, 0, 0);
        const Dictionnaire dictionnaire(repertoires);
        bilan_.comptes.mots = dictionnaire.nombre();
        TableWriter dico(base_, u"dico"_s, {u"mot"_s, u"liste"_s});
        for (qsizetype i = 0; i < dictionnaire.nombre() && bon_; ++i) {
            ecrit(dico, {dictionnaire.mot(i), dictionnaire.liste(i, provenance_)});
            annonce(Etape::Ecriture, i + 1, dictionnaire.nombre());
        }
        termine(dico);
    }

    /// Keywords that differ only in case are one, spelled as most documents spell it.
    void motscles() {
        struct Groupe {
            QString motcle;
            qint64 leplus = 0;
            qint64 nombre = 0;
        };
        std::map<QByteArray, Groupe> groupes;
        for (auto m = motscles_.cbegin(); m != motscles_.cend(); ++m) {
            Groupe& groupe = groupes[sortKey(m.key())];
            groupe.nombre += m.value();
            if (m.value() > groupe.leplus || (m.value() == groupe.leplus && m.key() < groupe.motcle)) {
                groupe.motcle = m.key();
                groupe.leplus = m.value();
            }
        }
        TableWriter table(base_, u"motclés"_s, {u"motcle"_s, u"nbarticle"_s});
        for (const auto& [cle, groupe] : groupes)
            ecrit(table, {groupe.motcle, groupe.nombre});
        termine(table);
        bilan_.comptes.motscles = static_cast<qint64>(groupes.size());
    }

    void articles() {
        std::stable_sort(articles_.begin(), articles_.end(),
                         [](const Article& a, const Article& b) { return a.cle < b.cle; });
        TableWriter table(base_, u"generelien"_s,
                          {u"référence"_s, u"numart"_s, u"numarticle"_s, u"numtitre"_s, u"titre"_s});
        for (const Article& article : articles_) {
            const Entete e = provenance_.entete(article.document);
            ecrit(table, {code(e.cle), numart(e.cle), ounul(e.numarticle), ounul(e.numtitre), ounul(e.titretexte)});
        }
        termine(table);
        bilan_.comptes.articles = static_cast<qint64>(articles_.size());
    }

    void arborescence() {
        std::vector<Noeud> noeuds = provenance_.noeuds();
        std::sort(noeuds.begin(), noeuds.end(), [](const Noeud& a, const Noeud& b) { return a.numero < b.numero; });
        TableWriter table(
            base_, u"arborescences"_s,
            {u"numerodutype"_s, u"dépendance"_s, u"référence"_s, u"ordre"_s, u"typededonnées"_s, u"nbarticles"_s});
        for (const Noeud& noeud : noeuds)
            ecrit(table, {noeud.numero, noeud.parent, typedindice(noeud.collection), noeud.ordre, noeud.libelle,
                          parnoeud_.value(noeud.numero)});
        termine(table);
        bilan_.comptes.noeuds = static_cast<qint64>(noeuds.size());
        TableWriter types(base_, u"typedocument"_s, {u"typedocument"_s, u"numerodutype"_s, u"ordre"_s});
        qint64 ordre = 0;
        for (const TypeDeDocument& type : provenance_.types())
            ecrit(types, {type.libelle, type.numero, ++ordre});
        termine(types);
        bilan_.comptes.types = ordre;
    }

    /// Six characters for each collection, in the order of the eleven.
    void parametres() {
        QString nombres;
        for (const qint64 nombre : bilan_.comptes.parcollection)
            nombres += sixchiffres(nombre);
        TableWriter table(base_, u"paramètres"_s, {u"nbarticles"_s, u"titre"_s});
        ecrit(table, {nombres, ounul(provenance_.titre())});
        termine(table);
    }

    /// The folded texts, behind everything else: their pages follow one another.
    void textes() {
        if (bon_ && !base_.makeTable(u"textes"_s))
            echoue();
        RowReader corps(base_, u"données_contenu"_s, {u"contenu"_s});
        TableWriter table(base_, u"textes"_s, {u"version"_s, u"texte"_s});
        QString texte;
        for (qint64 rangee = 1; rangee <= provenance_.nombre() && bon_; ++rangee) {
            if (corps.read(rangee) != RowReader::Found::Row) {
                echoue();
                return;
            }
            rtfToText(corps.bytes(0), texte, RtfLoad::Whole);
            corps.release();
            ecrit(table, {foldedTextVersion(), foldedText(texte)});
        }
        termine(table);
        gardetextes();
    }

    /// Whoever changes a body takes its folded text away; nobody has to know of this table for that.
    void gardetextes() {
        constexpr std::array<std::pair<QStringView, QStringView>, 3> changements{
            {{u"INSERT", u"NEW"}, {u"UPDATE", u"OLD"}, {u"DELETE", u"OLD"}}};
        for (const auto& [changement, rangee] : changements) {
            if (bon_ && !base_.execute(u"CREATE TRIGGER \"textes_%1\" AFTER %1 ON \"données_contenu\" BEGIN "
                                       "DELETE FROM \"textes\" WHERE id=%2.id; END"_s.arg(changement, rangee)))
                echoue();
        }
    }

    const Provenance& provenance_;
    Database& base_;
    const Progres& progres_;
    bool avectextes_;
    BilanDeFabrique bilan_;
    bool bon_ = true;
    bool correct_ = true;
    QHash<qint64, qint64> parnoeud_;
    QHash<QString, qint64> motscles_;
    std::vector<Article> articles_;
};

} // namespace

BilanDeFabrique fabriquebase(const Provenance& provenance, Database& base, const Progres& progres, bool textes) {
    return Fabrique(provenance, base, progres, textes).fait();
}

} // namespace velm
