#pragma once
// A small base with documents, words and tree nodes, and everything a search works with.
#include "core/cle.h"
#include "core/listes.h"
#include "core/schemas.h"
#include "search/listeselection.h"
#include "search/marche.h"
#include "search/poste.h"
#include "search/recherche.h"
#include "search/typescherches.h"
#include "tests/support/arret.h"
#include "tests/support/dialogues_script.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace velm::test {

using namespace Qt::Literals::StringLiterals;

/// A posting: the letter of a collection and a number.
inline QByteArray entree(char lettre, int numero) {
    QByteArray octets(1, lettre);
    for (const int decalage : {16, 8, 0})
        octets += static_cast<char>(numero >> decalage & 0xFF);
    return octets;
}

/// Postings of CO from a first to a last number.
inline QByteArray entrees(int premier, int dernier, char lettre = 'A') {
    QByteArray octets;
    for (int numero = premier; numero <= dernier; ++numero)
        octets += entree(lettre, numero);
    return octets;
}

struct DocumentCherche {
    QString cle;
    QString titre;
    QStringList motscles = {};
    qint64 noeud = 0;
};

/// A row of the numbers that articles and texts are cited by; a null text is Null in the base.
struct NumeroCite {
    QString cle;
    QString numarticle;
    QString numtitre = {};
    QString titre = {};
};

struct Bilan {
    Resultat::Issue issue = Resultat::Issue::Terminee;
    qint64 vus = 0;
    qint64 hits = 0;
    bool arretee = false;
};

class BaseRecherche : public testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(dossier.isValid()); }

    /// Makes the base of what the members hold, and opens it.
    void ouvre() {
        const QString chemin = dossier.filePath(u"velm2000.dat"_s);
        {
            const auto base = Database::create(chemin, corpusSchema());
            ASSERT_NE(base.database, nullptr);
            TableWriter table(*base.database, u"données"_s,
                              {u"référence"_s, u"numart"_s, u"titre"_s, u"motclé1"_s, u"motclé2"_s, u"motclé3"_s,
                               u"numeroarborescence"_s});
            std::array<qint64, nombredecollections> comptes{};
            for (const DocumentCherche& d : documents) {
                std::vector<QVariant> ligne{d.cle.left(2), d.cle.mid(2),
                                            d.titre.isNull() ? QVariant() : QVariant(d.titre)};
                for (qsizetype i = 0; i < 3; ++i)
                    ligne.push_back(i < d.motscles.size() ? QVariant(d.motscles.at(i)) : QVariant());
                ligne.push_back(d.noeud);
                ASSERT_TRUE(table.add(ligne));
                ++comptes[static_cast<std::size_t>(indicedetype(d.cle.left(2)))];
            }
            TableWriter arbre(*base.database, u"arborescences"_s,
                              {u"numerodutype"_s, u"dépendance"_s, u"référence"_s, u"ordre"_s, u"typededonnées"_s});
            for (const auto& [numero, libelle] : noeuds)
                ASSERT_TRUE(arbre.add({numero, 0, u"CO"_s, numero, libelle}));
            TableWriter dico(*base.database, u"dico"_s, {u"mot"_s, u"liste"_s});
            for (const auto& [mot, postes] : mots)
                ASSERT_TRUE(dico.add({mot, postes}));
            const auto ounul = [](const QString& texte) { return texte.isNull() ? QVariant() : QVariant(texte); };
            TableWriter liens(*base.database, u"generelien"_s,
                              {u"référence"_s, u"numart"_s, u"numarticle"_s, u"numtitre"_s, u"titre"_s});
            for (const NumeroCite& n : numeros)
                ASSERT_TRUE(
                    liens.add({n.cle.left(2), n.cle.mid(2), ounul(n.numarticle), ounul(n.numtitre), ounul(n.titre)}));
            TableWriter comptees(*base.database, u"motclés"_s, {u"motcle"_s, u"nbarticle"_s});
            for (const auto& [motcle, nombre] : motscles)
                ASSERT_TRUE(comptees.add({motcle, nombre}));
            TableWriter parametres(*base.database, u"paramètres"_s, {u"nbarticles"_s});
            QString packs;
            for (const qint64 compte : comptes)
                packs += sixchiffres(compte);
            ASSERT_TRUE(parametres.add({packs}));
        }
        ASSERT_EQ(corpus.connecte(chemin), OpenError::None);
        corpus.ouvretables();
    }

    /// Documents of CO from number 1 on, titled by their number.
    void ajoutedocuments(int nombre) {
        for (int numero = 1; numero <= nombre; ++numero)
            documents.push_back({u"CO"_s + sixchiffres(numero), u"Titre %1"_s.arg(numero)});
    }

    /// A search begins on a list without rows, tells the panel at its turns and at its end, and gives what it leaves
    /// but for the rows, which stand in the list.
    Bilan bilan(const std::function<void(Marche&, Resultat&)>& recherche, bool garde = false) {
        const std::stop_token vu = nouvelarret();
        progres.clear();
        panneau.clear();
        if (!garde) {
            liste.vide();
            panneau << QString();
        }
        Marche marche(cession, vu, [this](const Marche::Etape& etape) {
            progres.push_back({etape.vus, etape.total});
            if (etape.compte)
                panneau << textecompte(*etape.compte, textes);
        });
        recherche(marche, liste.resultat());
        const Resultat& resultat = liste.resultat();
        if (resultat.compte)
            panneau << textecompte(*resultat.compte, textes);
        return {resultat.issue, resultat.vus, resultat.hits, resultat.arretee()};
    }

    static QString textes(Texte lequel) {
        switch (const int id = static_cast<int>(lequel)) {
        case 2171:
            return u"document"_s;
        case 2172:
            return u"documents"_s;
        case 9791:
            return u"%1, %2"_s;
        case 7300:
            return u"inconnu"_s;
        case 7302:
            return u"La recherche a trouvé"_s;
        case 7303:
            return u"Recherche par mots"_s;
        case 7306:
            return u"documents. N’afficher que 200 ?"_s;
        default:
            return u"t%1"_s.arg(id);
        }
    }

    QStringList cles() const {
        QStringList toutes;
        for (int rang = 1; rang < liste.rows(); ++rang)
            toutes << liste.cle(rang);
        return toutes;
    }

    QTemporaryDir dossier;
    std::vector<DocumentCherche> documents;
    std::vector<std::pair<QString, QByteArray>> mots;
    std::vector<std::pair<qint64, QString>> noeuds;
    std::vector<NumeroCite> numeros;
    std::vector<std::pair<QString, qint64>> motscles;
    Corpus corpus;
    ListeSelection liste{textes};
    SablierMuet sablier;
    DialoguesScript dialogues;
    /// Each step gives its turn to what `evenement` does.
    std::function<void()> evenement;
    Poste poste{[this] {
                    if (evenement)
                        evenement();
                },
                std::chrono::milliseconds(0)};
    Cession& cession = poste.cession();

    /// For a search that begins: it ends the one before.
    std::stop_token nouvelarret() {
        arret.request_stop();
        arret = std::stop_source();
        return arret.get_token();
    }
    void arretesi(bool voulu) const {
        if (voulu)
            arret.request_stop();
    }
    mutable std::stop_source arret;
    QStringList panneau;
    std::vector<std::pair<qint64, qint64>> progres;
};

} // namespace velm::test
