// Random commands, compared after each with the step-by-step model on everything that can be seen.
#include "navigation_modele.h"
#include "navigation_support.h"
#include "tests/support/rounds.h"

#include <gtest/gtest.h>
#include <random>

namespace velm::test {
namespace {

class Suite {
public:
    /// With few documents each stands in the lists hundreds of times.
    Suite(unsigned graine, const QStringList& codes, int documents)
        : hasard_(graine), codes_(codes), documents_(documents), modele_(titres_), hote_(titres_),
          navigation_(hote_, corpus_) {
        hote_.navigation = &navigation_;
        for (const QString& code : codes_) {
            for (int numero = 1; numero <= documents_; ++numero)
                titres_[code + sixchiffres(numero)] = u"Titre %1 %2"_s.arg(code).arg(numero);
        }
    }

    /// One random act on both; what it was.
    QString agit() {
        const int sort = nombre(100);
        if (sort < 3)
            return ferme();
        if (sort < 5) {
            const int slot = nombre(5);
            const bool visible = nombre(2) == 0;
            navigation_.basculefenetre(slot, visible);
            modele_.bascule(slot, visible);
            return u"bascule %1 %2"_s.arg(slot).arg(visible);
        }
        if (sort < 7) {
            const bool une = nombre(3) != 0;
            navigation_.changeunefenetre(une);
            modele_.maffichagetfu = une;
            return u"une fenêtre %1"_s.arg(une);
        }
        QString faite = commande(sort);
        const bool replier = nombre(4) == 0;
        navigation_.navigue(faite, replier);
        modele_.navigue(faite, replier);
        return faite;
    }

    /// The first difference, or nothing.
    QString difference(bool entiere) const {
        const auto courant = [&](const QString& ou, const CourantModele& m, const Historique& h, const QString& ref,
                                 const QString& titre, bool precedent, bool suivant) {
            if (m.reference != ref || m.titre != titre)
                return ou + u" courant: "_s + ref + u" au lieu de "_s + m.reference;
            if (m.boutonprecedent != precedent || m.boutonsuivant != suivant)
                return ou + u" boutons"_s;
            if (!liste(m.precedent, h.precedent, entiere) || !liste(m.suivant, h.suivant, entiere))
                return ou + u" listes"_s;
            return QString();
        };
        QString faux = courant(u"écran"_s, modele_.ecran, navigation_.historique(), navigation_.referencecourante(),
                               navigation_.titrecourant(), hote_.boutonprecedent, hote_.boutonsuivant);
        if (modele_.toutes.size() != hote_.fenetres.size())
            return u"fenêtres"_s;
        for (std::size_t i = 0; i < hote_.fenetres.size() && faux.isEmpty(); ++i) {
            const FenetreModele* m = modele_.toutes[i].get();
            FenetreEssai* f = hote_.fenetres[i].get();
            QString ou = u"fenêtre %1"_s.arg(i);
            if ((m == nullptr) != (f == nullptr))
                return ou;
            if (!m)
                continue;
            const Parcours& p = f->parcours();
            faux = courant(ou, *m, p.historique, p.referencecourante, p.titrecourant, f->boutonprecedent,
                           f->boutonsuivant);
            if (m->affichages != f->affichages.size() || m->titreaffiche != f->titreaffiche ||
                m->visible != f->visible || m->slot != f->slot)
                return ou + u" état"_s;
        }
        return faux.isEmpty() ? emplacements() : faux;
    }

    int plusgrande = 0; ///< the longest list that was met

private:
    int nombre(int borne) { return static_cast<int>(hasard_() % static_cast<unsigned>(borne)); }
    QString code() { return codes_.at(nombre(static_cast<int>(codes_.size()))); }

    QString commande(int sort) {
        const auto n = [this] { return QString::number(nombre(5) == 0 ? nombre(40) - 2 : 1 + nombre(4)); };
        const QString sens = nombre(2) == 0 ? u"-1"_s : u"+1"_s;
        const QString lettre = nombre(2) == 0 ? u"P"_s : u"S"_s;
        if (sort < 50)
            return u"TA"_s + code() + sixchiffres(1 + nombre(documents_));
        if (sort < 65)
            return u"TA"_s + sens;
        if (sort < 77)
            return u"TA"_s + code() + sens;
        if (sort < 85)
            return u"LITA"_s + lettre + n();
        if (sort < 92)
            return u"LI"_s + code() + lettre + n();
        if (sort < 95)
            return u"TA"_s + code() + sixchiffres(900 + nombre(3)); // absent from the base
        static const QStringList etranges = {
            u"TA"_s,         u"TACO"_s,       u"TACO1"_s,   u"TAEU1"_s,  u"TACO0000012"_s, u"TACO000001234"_s,
            u"TAIN000001"_s, u"TAXX000001"_s, u"LICOX2"_s,  u"LITAX2"_s, u"LITAP"_s,       u"LICOSzz"_s,
            u"XXCO000001"_s, u""_s,           u"LI"_s,      u"TAIN-1"_s, u"LIINP1"_s,      u"LITAS99999999999"_s,
            u"taCO000001"_s, u"LICOp1"_s,     u"LITAP-3"_s, u"LIXXP2"_s};
        return etranges.at(nombre(static_cast<int>(etranges.size())));
    }

    QString ferme() {
        std::vector<std::size_t> vivantes;
        for (std::size_t i = 0; i < hote_.fenetres.size(); ++i) {
            if (hote_.fenetres[i])
                vivantes.push_back(i);
        }
        if (vivantes.empty())
            return u"rien à fermer"_s;
        const std::size_t i = vivantes[static_cast<std::size_t>(nombre(static_cast<int>(vivantes.size())))];
        hote_.ferme(hote_.fenetres[i].get());
        modele_.ferme(modele_.toutes[i].get());
        return u"ferme %1"_s.arg(i);
    }

    static bool liste(const ListeModele& m, const ListeHistorique& h, bool entiere) {
        if (m.count() != h.nombre())
            return false;
        const int jusque = entiere ? m.count() : std::min(m.count(), 3);
        for (int rang = 1; rang <= jusque; ++rang) {
            const ButtonMenu& entree = h.menus().at(rang);
            if (entree.key != m.item(rang).key || entree.text != m.item(rang).text)
                return false;
        }
        return true;
    }

    QString emplacements() const {
        for (int slot = 0; slot < nombredefenetres; ++slot) {
            const auto s = static_cast<std::size_t>(slot);
            const FenetreNavigable* f = navigation_.fenetre(slot);
            const auto place = std::find_if(hote_.fenetres.begin(), hote_.fenetres.end(),
                                            [&](const auto& celle) { return celle && celle.get() == f; });
            const FenetreModele* attendue =
                f ? modele_.toutes[static_cast<std::size_t>(place - hote_.fenetres.begin())].get() : nullptr;
            if (modele_.fenetres[s] != attendue || navigation_.fenetreouverte(slot) != modele_.fenetreouverte[s] ||
                navigation_.maffichagef(slot) != modele_.maffichagef[s] || hote_.enfonces[s] != modele_.maffichagef[s])
                return u"emplacement %1"_s.arg(slot);
        }
        for (int rang = 0; rang < Navigation::nombrederniers; ++rang) {
            const auto r = static_cast<std::size_t>(rang);
            if (navigation_.derniersdocuments()[r] != modele_.derniers[rang] ||
                navigation_.derniersdocumentslibelles()[r] != modele_.libelles[rang])
                return u"dernier document %1"_s.arg(rang);
        }
        return {};
    }

public:
    /// The flags that a window's activation takes; asking clears them on both sides.
    QString replis() {
        for (int slot = 0; slot < nombredefenetres; ++slot) {
            if (navigation_.prendreplier(slot) !=
                std::exchange(modele_.replierliste[static_cast<std::size_t>(slot)], false))
                return u"repli %1"_s.arg(slot);
        }
        return {};
    }
    void mesure() {
        plusgrande = std::max({plusgrande, modele_.ecran.precedent.count(), modele_.ecran.suivant.count()});
    }

private:
    std::mt19937 hasard_;
    QStringList codes_;
    int documents_;
    QHash<QString, QString> titres_;
    Corpus corpus_;
    ModeleNavigation modele_;
    HoteEssai hote_;
    Navigation navigation_;
};

struct Cas {
    QStringList codes;
    int documents;
    int commandes;
};

class NavigationAuHasard : public testing::TestWithParam<int> {
protected:
    static const Cas& cas(int i) {
        static const std::vector<Cas> tous = {
            {{u"CO"_s, u"EU"_s, u"JP"_s, u"CL"_s, u"DI"_s}, 6, test::rounds(10'000)},
            {{u"CO"_s, u"DI"_s}, 1, test::rounds(10'000)},
            {{u"LT"_s}, 2, test::rounds(3'000)},
        };
        return tous[static_cast<std::size_t>(i)];
    }
};

TEST_P(NavigationAuHasard, TheHistoriesAreThoseOfTheModel) {
    // A long run is made of many sessions, since the lists grow without end.
    const bool longue = qEnvironmentVariableIntValue("VELM_LONG") != 0;
    const Cas& essai = cas(GetParam());
    const int sessions = longue ? 45 : 1;
    for (int session = 0; session < sessions; ++session) {
        Suite suite(static_cast<unsigned>(session + 1), essai.codes, essai.documents);
        QStringList faites;
        for (int pas = 0; pas < essai.commandes; ++pas) {
            faites << suite.agit();
            QString faux = suite.difference(pas % 16 == 0 || pas + 1 == essai.commandes);
            if (faux.isEmpty() && pas % 7 == 0)
                faux = suite.replis();
            suite.mesure();
            ASSERT_TRUE(faux.isEmpty())
                << "session " << session << ", act " << pas << ": " << faux.toStdString()
                << "\nlast acts: " << faites.last(std::min<qsizetype>(20, faites.size())).join(u" | "_s).toStdString();
        }
        EXPECT_GT(suite.plusgrande, essai.commandes / 20) << "the lists stayed too short to prove much";
    }
}
INSTANTIATE_TEST_SUITE_P(Collections, NavigationAuHasard, testing::Range(0, 3));

} // namespace
} // namespace velm::test
