// Random documents, margins, fonts and jobs, compared with the step-by-step model: every call of the printer, every
// range with its bottom, the state and the buttons after each command. VELM_TOURS plays so many jobs instead of the
// suite's, from VELM_GRAINE on.
#include "banc_impression.h"
#include "boucle_litterale.h"
#include "tests/support/rounds.h"

#include <array>
#include <functional>
#include <random>

namespace velm::test {
namespace {

enum class Issue { Faite, Panne, Debordement, SansPlace };

Issue issue(const std::function<void()>& commande) {
    try {
        commande();
        return Issue::Faite;
    } catch (const PrintFailure&) {
        return Issue::Panne;
    } catch (const PositionHorsBornes&) {
        return Issue::Debordement;
    } catch (const Debordement&) {
        return Issue::Debordement;
    } catch (const FeuilleTropPetite&) {
        return Issue::SansPlace;
    } catch (const SansPlace&) {
        return Issue::SansPlace;
    }
}

struct Etendue {
    qsizetype debut = 0;
    qsizetype fin = -1;
};

class TravauxAuHasard : public testing::Test {
protected:
    /// One job, or several, of the same settings; the first difference, or nothing.
    QString joue(unsigned graine) {
        hasard_.seed(graine);
        const ReglagesImpression documents = reglages();
        const ReglagesImpression dossiers = reglages();
        AppareilScript ici = appareil();
        AppareilScript la = ici;
        EtatImpression etat;
        QList<bool> boutons;
        Impression impression(
            {ici, etat, documents, dossiers, textefrancais, [&boutons](bool ouvert) { boutons << ouvert; }});
        BoucleLitterale modele(la, documents, dossiers);
        const int commandes = 1 + nombre(6);
        for (int i = 0; i < commandes; ++i) {
            const int laquelle = nombre(12);
            texte();
            const Etendue ou = etendue(laquelle);
            const Issue une = issue([&] { agit(impression, laquelle, ou); });
            const Issue autre = issue([&] { agit(modele, laquelle, ou); });
            const EtatImpression sienne{modele.numeropage, modele.travailencours, modele.positioncourante,
                                        modele.decalagex, modele.decalagey};
            if (une != autre || etat != sienne || boutons != modele.boutons || ici.appels != la.appels ||
                ici.passages != la.passages)
                return u"graine %1, commande %2\n"_s.arg(graine).arg(i) + ici.appels.join(u'\n') + u"\n---\n"_s +
                       la.appels.join(u'\n');
            ++issues_[static_cast<std::size_t>(une)];
            pages_ += ici.passages.size();
            if (une == Issue::Panne)
                break; // throwing away what has failed is no step of the model's
            ici.oublie();
            la.oublie();
        }
        return {};
    }

    std::array<int, 4> issues_{};
    qsizetype pages_ = 0;

private:
    template <class Moteur>
    void agit(Moteur& moteur, int laquelle, const Etendue& ou) {
        const QString nom = u"Baux"_s;
        if (laquelle < 6)
            moteur.imprimerichtext(rtf_, ou.debut, ou.fin);
        else if (laquelle < 9)
            moteur.imprimerrichtextdossier(rtf_, nom, ou.debut, ou.fin);
        else if (laquelle == 9)
            moteur.terminetravail();
        else if (laquelle == 10)
            moteur.terminetravaildossier(nom);
        else
            moteur.abandontravail();
    }

    int nombre(int borne) { return static_cast<int>(hasard_() % static_cast<unsigned>(borne)); }
    bool unefoissur(int combien) { return nombre(combien) == 0; }
    int marge() { return unefoissur(25) ? nombre(40000) - 20000 : nombre(3000) - 200; }
    LigneImpression ligne() {
        return {nombre(5) - 1, {u"Fonte %1"_s.arg(nombre(3)), 6 + nombre(20), nombre(3), nombre(3) - 1}};
    }
    QString entete() {
        const QStringList textes{{}, u"Titre"_s, u"{dossier}"_s, u"{DOSSIER} {Dossier}, suite"_s, u" "_s};
        return textes[nombre(static_cast<int>(textes.size()))];
    }
    ReglagesImpression reglages() {
        ReglagesImpression r;
        r.margehaute = marge();
        r.margebasse = marge();
        r.margegauche = marge();
        r.margedroite = marge();
        r.margeentete = marge();
        r.margepieddepage = marge();
        r.nopageentete = nombre(3) - 1;
        r.nopagepied = nombre(2);
        r.textentete = entete();
        r.textpied = entete();
        r.ligneentete = ligne();
        r.lignenopageentete = ligne();
        r.lignepied = ligne();
        r.lignenopagepied = ligne();
        r.ejectionautomatique = unefoissur(3);
        r.ligneseparatrice = unefoissur(2);
        return r;
    }
    AppareilScript appareil() {
        AppareilScript a;
        const int largeur = unefoissur(10) ? 40000 : 4000 + nombre(12000);
        const int hauteur = unefoissur(6) ? 60000 : 4000 + nombre(16000);
        a.feuille = {largeur, hauteur, largeur - 500, hauteur - 480, nombre(400), nombre(400)};
        a.caracteresparligne = 1 + nombre(80);
        a.hauteurdeligne = 100 + nombre(900);
        a.hauteurdetexte = nombre(700);
        a.largeurdelettre = 20 + nombre(200);
        a.pannea = unefoissur(8) ? nombre(60) : -1;
        return a;
    }
    void texte() {
        QString t;
        const int paragraphes = nombre(6);
        for (int i = 0; i < paragraphes; ++i)
            t += lettres(nombre(600)) + u"\r\n"_s;
        rtf_.setText(t);
        if (unefoissur(2)) {
            rtf_.setSelStart(nombre(static_cast<int>(t.size()) + 1));
            rtf_.setSelLength(nombre(static_cast<int>(t.size()) + 1));
        }
    }
    /// A document is printed as a whole or its selection; of a dossier anything, with nothing selected.
    Etendue etendue(int laquelle) {
        if (laquelle < 6 && rtf_.selLength() > 0)
            return {rtf_.selStart(), rtf_.selStart() + rtf_.selLength()};
        if (laquelle < 6)
            return {};
        rtf_.setSelStart(0);
        if (unefoissur(2))
            return {};
        const qsizetype debut = nombre(1500);
        return {debut, debut + nombre(900)};
    }

    std::mt19937 hasard_;
    RichTextControl rtf_;
};

TEST_F(TravauxAuHasard, EveryPageIsThatOfTheLiteralLoop) {
    const int tours = qEnvironmentVariableIntValue("VELM_TOURS");
    const auto graine = static_cast<unsigned>(qEnvironmentVariableIntValue("VELM_GRAINE"));
    const int joues = tours > 0 ? tours : rounds(4000);
    for (int tour = 0; tour < joues; ++tour) {
        const QString faux = joue(graine + static_cast<unsigned>(tour));
        ASSERT_TRUE(faux.isEmpty()) << faux.toStdString();
    }
    // Chance has met all that a command can come to.
    for (const int combien : issues_)
        EXPECT_GT(combien, joues / 100);
    EXPECT_GT(pages_, joues);
    RecordProperty("pages", static_cast<int>(pages_));
}

} // namespace
} // namespace velm::test
