// Random work on a tree and its items, compared after each step with the step-by-step models: what is drawn always, the
// tables after each write. VELM_TOURS plays so many sequences instead of the suite's, from VELM_GRAINE on.
#include "differences.h"
#include "modelecontenu.h"
#include "tests/support/rounds.h"

#include <gtest/gtest.h>
#include <random>

namespace velm::test {
namespace {

class Hasard : public MagasinTest {
protected:
    void SetUp() override {
        MagasinTest::SetUp();
        reouvre();
    }

    /// One sequence, from an empty store; the first difference, or nothing.
    QString joue(unsigned graine) {
        hasard_.seed(graine);
        vide();
        QString faits;
        const int actes = 10 + nombre(35);
        for (int i = 0; i < actes; ++i) {
            faits += agit() + u'\n';
            if (const QString faux = difference(); !faux.isEmpty())
                return u"graine %1\n"_s.arg(graine) + faits + faux;
        }
        return {};
    }

private:
    void reouvre() {
        magasin.fermedossiers();
        magasin.ouvredossiers(dossier());
        ASSERT_FALSE(magasin.dossiersindisponibles());
        // What a crash would leave is not what is asked here.
        ASSERT_TRUE(magasin.dbdossiers().execute(
            u"PRAGMA synchronous=OFF; PRAGMA journal_mode=MEMORY; PRAGMA locking_mode=EXCLUSIVE"_s));
    }
    void vide() {
        ASSERT_TRUE(magasin.dbdossiers().execute(
            u"DELETE FROM arborescences; DELETE FROM données; UPDATE paramètres SET dernoarborescence=0"_s));
        tables_ = {};
        charge();
    }
    void charge() {
        arbre_.litprochainnumero();
        arbre_.chargearbre();
        modele_.chargement();
        selectionne(*modele_.racine);
    }
    void selectionne(NoeudModele& noeud) {
        selection_ = noeud.numero();
        contenu_.liste(selection_);
        modelecontenu_.liste(selection_);
    }
    void sauve() {
        EXPECT_TRUE(arbre_.Sauvearbre().ok());
        modele_.Sauvearbre();
        tablesaussi_ = true;
    }

    int nombre(int borne) { return static_cast<int>(hasard_() % static_cast<unsigned>(borne)); }
    bool unefoissur(int combien) { return nombre(combien) == 0; }
    NoeudModele& noeudauhasard() {
        const auto tous = modele_.tous();
        return *tous[static_cast<std::size_t>(nombre(static_cast<int>(tous.size())))];
    }
    /// Null where chance met the root.
    NoeudModele* dossierauhasard() {
        NoeudModele& noeud = noeudauhasard();
        return noeud.parent ? &noeud : nullptr;
    }
    NoeudModele* cibleauhasard() {
        NoeudModele& noeud = noeudauhasard();
        return noeud.tag.contains(u'S') ? nullptr : &noeud;
    }
    QString nom() {
        static const QStringList noms{u"Baux"_s,         u"Loi [1989]"_s, u"x[3]"_s,        u"[3]"_s,
                                      u"Loi [projet]"_s, u"a]"_s,         u"Été [a] [9]"_s, u""_s,
                                      u"Crédit"_s,       u"[ ]"_s,        u"Divers [0]"_s,  u"b [-2]"_s};
        return noms[nombre(static_cast<int>(noms.size()))];
    }
    ElementEnAttente element() {
        static const QStringList references{u"CO000001"_s, u"CO000002"_s, u"EU000001"_s};
        ElementEnAttente un{references[nombre(3)], u"Titre %1"_s.arg(nombre(50)), 0, 0};
        if (unefoissur(3)) {
            un.itemdebut = nombre(3) * 10;
            un.itemlongueur = 1 + nombre(2);
        }
        return un;
    }
    int ici(const NoeudModele& noeud) const { return noeuds_.indexOf(noeud.cle); }

    QString agit() {
        const int sort = nombre(100);
        if (sort < 60)
            return agitdansarbre(sort);
        if (sort < 90)
            return agitdanscontenu(sort - 60);
        if (sort < 94) {
            sauve();
            return u"sauve"_s;
        }
        if (arbre_.modifie())
            sauve();
        if (sort >= 98)
            reouvre();
        charge();
        return sort >= 98 ? u"rouvre"_s : u"ferme"_s;
    }

    QString agitdansarbre(int sort) {
        if (sort < 14)
            return ajoute();
        if (sort < 22)
            return renomme();
        if (sort < 30)
            return supprime();
        if (sort < 38)
            return deplace();
        if (sort < 44)
            return change(sort < 41);
        if (sort < 47) {
            arbre_.toutdevelopper();
            modele_.toutdevelopper();
            return u"développe tout"_s;
        }
        NoeudModele& noeud = noeudauhasard();
        if (sort < 53) {
            arbre_.developpe(ici(noeud));
            modele_.developpe(noeud);
            return u"développe "_s + noeud.cle;
        }
        selectionne(noeud);
        return u"choisit "_s + noeud.cle;
    }

    QString ajoute() {
        NoeudModele* parent = cibleauhasard();
        if (!parent)
            return {};
        const int nouveau = arbre_.ajoute(ici(*parent), QString());
        NoeudModele& sien = modele_.ajoute(*parent);
        if (!unefoissur(5)) {
            sien.texte = nom();
            noeuds_.setText(nouveau, sien.texte);
        }
        EXPECT_EQ(noeuds_.selected(), nouveau);
        return u"ajoute %1 '%2'"_s.arg(sien.cle, sien.texte);
    }
    QString renomme() {
        NoeudModele* noeud = dossierauhasard();
        if (!noeud)
            return {};
        arbre_.commencerenommage(ici(*noeud));
        arbre_.remetcompteur(ici(*noeud));
        arbre_.notemodifie();
        modele_.renomme(*noeud);
        modele_.modifie = true;
        if (unefoissur(4))
            return u"ne renomme pas "_s + noeud->cle;
        noeud->texte = nom();
        noeuds_.setText(ici(*noeud), noeud->texte);
        return u"renomme %1 '%2'"_s.arg(noeud->cle, noeud->texte);
    }
    QString supprime() {
        NoeudModele* noeud = dossierauhasard();
        if (!noeud)
            return {};
        const bool marquer = !noeud->tag.contains(u'S');
        EXPECT_FALSE(arbre_.testearticle(ici(*noeud)));
        arbre_.marquersuppression(ici(*noeud), marquer);
        modele_.marquersuppression(*noeud, marquer);
        return (marquer ? u"supprime "_s : u"garde "_s) + noeud->cle;
    }
    QString deplace() {
        NoeudModele& noeud = noeudauhasard();
        NoeudModele* cible = cibleauhasard();
        if (!cible)
            return {};
        EXPECT_EQ(arbre_.deplace(ici(noeud), ici(*cible)), modele_.deplace(noeud, *cible));
        return u"déplace %1 dans %2"_s.arg(noeud.cle, cible->cle);
    }
    QString change(bool monte) {
        NoeudModele& noeud = noeudauhasard();
        const QString cle = noeud.cle;
        const int fait = monte ? arbre_.monte(ici(noeud)) : arbre_.descend(ici(noeud));
        EXPECT_EQ(fait != 0, monte ? modele_.monte(noeud) : modele_.descend(noeud));
        if (fait != 0)
            EXPECT_EQ(noeuds_.selected(), fait);
        return (monte ? u"monte "_s : u"descend "_s) + cle;
    }

    QString agitdanscontenu(int sort) {
        tablesaussi_ = true;
        if (sort < 12)
            return range();
        if (sort < 14)
            return importe();
        const int entrees = elements_.count();
        if (entrees == 0)
            return {};
        const int index = 1 + nombre(entrees);
        const QString cle = elements_.key(index);
        if (sort < 18)
            return deplaceelement(index) + cle;
        if (sort < 21)
            return renommeelement(index) + cle;
        if (sort < 24)
            return supprimeelement(index) + cle;
        const int autre = unefoissur(2) ? index - 1 : index + 1;
        return elements_.contains(autre) ? echange(index, autre) + cle : QString();
    }

    void change(qint64 numero, qint64 delta) {
        NoeudModele* noeud = modele_.noeud(u"X "_s + decimal(numero));
        if (!noeud)
            return;
        arbre_.modifierelements(ici(*noeud), delta);
        modele_.modifierelements(*noeud, delta);
    }
    QString range() {
        NoeudModele* cible = cibleauhasard();
        if (!cible)
            return {};
        const ElementEnAttente un = element();
        if (unefoissur(4)) {
            contenu_.ajouteenattente(un);
            modelecontenu_.attente(un);
        }
        EXPECT_TRUE(contenu_.range(un, cible->numero()).ok());
        modelecontenu_.range(un, cible->numero());
        change(cible->numero(), 1);
        arbre_.notemodifie();
        modele_.modifie = true;
        if (!unefoissur(3))
            selectionne(*cible);
        return u"range %1 dans %2"_s.arg(un.itemreference, cible->cle);
    }
    QString importe() {
        const int nouveau = arbre_.ajoute(noeuds_.childAt(0, 0), u"Importé [2]"_s);
        NoeudModele& sien = modele_.ajoute(*modele_.racine);
        sien.texte = u"Importé [2]"_s;
        selectionne(sien);
        ContenuDossier::Paires paires;
        const int combien = nombre(4);
        for (int i = 0; i < combien; ++i) {
            const ElementEnAttente un = element();
            const Extrait extrait{un.itemdebut, un.itemlongueur};
            paires.emplace_back(cleelement(un.itemreference, 1 + nombre(4), extrait),
                                un.itemtitre + contenu_.suffixe(extrait));
        }
        EXPECT_TRUE(contenu_.importe(paires, arbre_.numero(nouveau)).ok());
        modelecontenu_.importe(paires, sien.numero());
        for (const auto& [cle, texte] : paires) {
            elements_.add(0, cle, texte, cle.left(2));
            modelecontenu_.ajouteentree(cle, texte);
        }
        change(sien.numero(), combien);
        return u"importe %1 dans %2"_s.arg(combien).arg(sien.cle);
    }
    QString deplaceelement(int index) {
        NoeudModele* cible = cibleauhasard();
        if (!cible)
            return {};
        const auto fait = contenu_.deplace(index, cible->numero());
        EXPECT_TRUE(fait.echec.ok());
        EXPECT_EQ(fait.trouve, modelecontenu_.deplace(rang(index), cible->numero()));
        change(selection_, -1);
        change(cible->numero(), 1);
        arbre_.notemodifie();
        modele_.modifie = true;
        return u"déplace vers %1: "_s.arg(cible->cle);
    }
    QString renommeelement(int index) {
        QString texte = u"Nouveau %1"_s.arg(nombre(9));
        const QString tape = texte;
        const auto fait = contenu_.renomme(index, texte);
        elements_.setText(index, texte);
        EXPECT_TRUE(fait.echec.ok());
        EXPECT_EQ(fait.trouve, modelecontenu_.renomme(rang(index), tape));
        return u"renomme "_s;
    }
    QString supprimeelement(int index) {
        const auto fait = contenu_.supprime(index, selection_);
        EXPECT_TRUE(fait.echec.ok());
        EXPECT_EQ(fait.trouve, modelecontenu_.supprime(rang(index), selection_));
        if (fait.trouve)
            change(selection_, -1);
        return u"supprime "_s;
    }
    QString echange(int i, int j) {
        bool echec = false;
        const auto fait = contenu_.echange(i, j);
        const bool trouve = modelecontenu_.echange(rang(i), rang(j), echec);
        EXPECT_EQ(fait.echec.ok(), !echec) << fait.echec.mots.toStdString();
        if (!echec)
            EXPECT_EQ(fait.trouve, trouve);
        if (!echec && trouve)
            EXPECT_EQ(elements_.selected(), j);
        return u"échange %1 et %2: "_s.arg(i).arg(j);
    }
    static std::size_t rang(int index) { return static_cast<std::size_t>(index - 1); }

    QString difference() {
        if (testing::Test::HasFailure())
            return u"acte"_s;
        if (const QString ici = dessinnoeuds(noeuds_), la = modele_.dessin(); ici != la)
            return u"arbre:\n%1\nau lieu de\n%2"_s.arg(ici, la);
        if (const QString ici = dessinelements(elements_), la = modelecontenu_.dessin(); ici != la)
            return u"liste:\n%1\nau lieu de\n%2"_s.arg(ici, la);
        if (arbre_.prochainnumero() != modele_.prochainnumero || arbre_.modifie() != modele_.modifie)
            return u"état"_s;
        return std::exchange(tablesaussi_, false)
                   ? differencedestables({dossiers(), elements(), derniernumero()}, tables_)
                   : QString();
    }

    std::mt19937 hasard_;
    TreeNodes noeuds_;
    ListItems elements_;
    ArbreDossiers arbre_{magasin, noeuds_, sablier, u"Mes dossiers"_s};
    ContenuDossier contenu_{magasin, elements_, u"extrait"_s};
    TablesModele tables_;
    ModeleArbre modele_{tables_};
    ModeleContenu modelecontenu_{tables_};
    qint64 selection_ = 0;
    bool tablesaussi_ = false;
};

TEST_F(Hasard, TreeItemsAndTablesAreThoseOfTheStepByStepModels) {
    const int tours = qEnvironmentVariableIntValue("VELM_TOURS");
    const auto graine = static_cast<unsigned>(qEnvironmentVariableIntValue("VELM_GRAINE"));
    const int joues = tours > 0 ? tours : rounds(800);
    for (int tour = 0; tour < joues; ++tour) {
        const QString faux = joue(graine + static_cast<unsigned>(tour));
        ASSERT_TRUE(faux.isEmpty()) << faux.toStdString();
    }
}

} // namespace
} // namespace velm::test
