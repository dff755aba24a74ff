#pragma once
// The start page of the real program, and short names for what stands on it.
#include "core/schemas.h"
#include "platform/widgets/look/noteline.h"
#include "search/ui/frmvelmorselect.h"
#include "shell/bureau.h"
#include "shell/depart.h"
#include "shell/groupedepart.h"
#include "shell/recherches.h"
#include "shell/selection.h"
#include "shell/vuedepart.h"
#include "tests/shell/ecran_support.h"

#include <QLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QToolButton>

namespace velm::test {

using namespace Qt::Literals::StringLiterals;

class DepartTest : public EcranTest {
protected:
    void SetUp() override {
        EcranTest::SetUp();
        const auto base = Database::open(dossier.filePath(u"velm2000.dat"_s), OpenMode::Shared, corpusSchema());
        ASSERT_NE(base.database, nullptr);
        TableWriter parametres(*base.database, u"paramètres"_s, {u"nbarticles"_s});
        ASSERT_TRUE(parametres.add({u"000014000000000001"_s}));
    }
    std::vector<DocumentEssai> documents() const override {
        std::vector<DocumentEssai> tous;
        for (int numero = 1; numero <= 12; ++numero)
            tous.push_back({u"CO"_s + sixchiffres(numero), u"Article %1"_s.arg(numero), "{\\rtf1 Un article.\\par}"});
        tous.push_back({u"CO000013"_s, u"Crédit"_s, "{\\rtf1 Le cr\\'e9dit.\\par}"});
        tous.push_back({u"CO000014"_s, u"Crédit gratuit"_s, "{\\rtf1 Rien.\\par}"});
        tous.push_back({u"JP000007"_s, u"Un arrêt"_s, "{\\rtf1 Trois.\\par}"});
        return tous;
    }
    void commence(const QString& ligne = QString()) {
        ASSERT_EQ(demarre(ligne), Demarrage::EnMarche);
        ASSERT_TRUE(QTest::qWaitForWindowActive(&ecran()));
    }
    VueDepart& page() const { return programme->cadre().depart().vue(); }
    QLineEdit& champ() const { return page().champ(); }
    const std::vector<LigneDepart*>& collections() const { return page().collections().lignes(); }
    static QStringList noms(const GroupeDepart& groupe) {
        QStringList tous;
        for (const LigneDepart* ligne : groupe.lignes())
            tous << ligne->text();
        return tous;
    }
    /// Letter by letter; the keys of a test know no accents.
    void tape(const QString& texte) const {
        for (const QChar lettre : texte)
            champ().insert(lettre);
    }
    static bool apourfocus(const LigneDepart* ligne) { return ligne->hasFocus(); }
    NoteLine* bilan() const { return page().findChild<NoteLine*>(u"bilandepart"_s); }
    QPushButton* bouton(const QString& nom) const { return page().findChild<QPushButton*>(nom); }
    QWidget* feuille() const { return page().findChild<QWidget*>(u"feuille"_s); }
    void taille(int largeur, int hauteur) const {
        ecran().showNormal();
        ecran().resize(largeur, hauteur);
    }
};

} // namespace velm::test
