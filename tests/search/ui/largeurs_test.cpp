// Where the controls of the form stand at every width that a window of the frame may have.
#include "core/langue.h"
#include "platform/widgets/look/look.h"
#include "tests/search/ui/formulaire_support.h"
#include "tests/support/rounds.h"

#include <QLabel>

#include <cstdlib>
#include <set>
#include <tuple>

using namespace velm;
using namespace velm::test;

namespace {

constexpr int plusetroite = 640;
/// Beside a list, on a small screen seen at twice its size.
constexpr int etroite = 286;
constexpr int pluslarge = 2560;

class LargeursTest : public FormulaireTest, public testing::WithParamInterface<const char*> {
protected:
    /// The form with the words of a language.
    void SetUp() override {
        FormulaireTest::SetUp();
        langue.choisitfichier(QStringLiteral(VELM_SOURCE_DIR), QStringLiteral(VELM_SOURCE_DIR),
                              QString::fromLatin1(GetParam()));
        ouvreformulaire([this](Texte lequel) { return langue.lireressource(lequel); });
        progression().show();
    }
    /// What is shown and pressed, filled in or read.
    QList<QWidget*> controles() const {
        QList<QWidget*> tous;
        for (QWidget* celui : formulaire->findChildren<QWidget*>()) {
            const bool controle = qobject_cast<QAbstractButton*>(celui) || qobject_cast<QLineEdit*>(celui) ||
                                  qobject_cast<QComboBox*>(celui) || qobject_cast<QLabel*>(celui) ||
                                  qobject_cast<QListWidget*>(celui) || qobject_cast<QProgressBar*>(celui);
            if (controle && celui->isVisible() && !celui->size().isEmpty())
                tous << celui;
        }
        return tous;
    }
    QRect place(const QWidget& controle) const { return {controle.mapTo(formulaire.get(), QPoint()), controle.size()}; }
    /// All of a control is seen: nothing that it lies in cuts it.
    bool entier(const QWidget& controle) const {
        QRect ici = controle.rect();
        const QWidget* dans = &controle;
        while (dans != formulaire.get()) {
            ici.translate(dans->pos());
            dans = dans->parentWidget();
            if (!dans->rect().contains(ici))
                return false;
        }
        return true;
    }
    static std::string nom(const QWidget& controle) {
        const auto* label = qobject_cast<const QLabel*>(&controle);
        return (label ? label->text() : controle.objectName()).toStdString();
    }
    void verifie() const {
        const QList<QWidget*> tous = controles();
        for (qsizetype i = 0; i < tous.size(); ++i) {
            ASSERT_TRUE(entier(*tous[i])) << nom(*tous[i]) << " is cut at " << formulaire->width();
            for (qsizetype j = 0; j < i; ++j) {
                if (tous[i]->isAncestorOf(tous[j]) || tous[j]->isAncestorOf(tous[i]))
                    continue;
                ASSERT_FALSE(place(*tous[i]).intersects(place(*tous[j])))
                    << nom(*tous[i]) << " lies on " << nom(*tous[j]) << " at " << formulaire->width();
            }
        }
    }
    void elargit(int largeur, int hauteur = 900) const {
        formulaire->resize(largeur, hauteur);
        // What the new size asks of the layouts comes as events.
        QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
        ASSERT_EQ(formulaire->width(), largeur);
    }

    Langue langue{[](const QString& numero) { ADD_FAILURE() << numero.toStdString(); }};
};

} // namespace

TEST_P(LargeursTest, NoControlLiesOnAnotherAtAnyWidth) {
    for (const Onglet celui : {Onglet::Rapide, Onglet::Criteres, Onglet::Mots}) {
        onglet(celui);
        for (int largeur = plusetroite; largeur <= pluslarge; largeur += oneInHowMany) {
            ASSERT_NO_FATAL_FAILURE(elargit(largeur));
            ASSERT_NO_FATAL_FAILURE(verifie()) << "tab " << static_cast<int>(celui);
        }
    }
}

TEST_P(LargeursTest, ANarrowFormIsOnlyHigherAndNeverScrolledSideways) {
    constexpr int assezhaute = 1600;
    for (const Onglet celui : {Onglet::Rapide, Onglet::Criteres, Onglet::Mots}) {
        onglet(celui);
        for (int largeur = etroite; largeur <= plusetroite; largeur += 4) {
            ASSERT_NO_FATAL_FAILURE(elargit(largeur, assezhaute));
            ASSERT_NO_FATAL_FAILURE(verifie()) << "tab " << static_cast<int>(celui);
        }
        // Below the fold one scrolls downwards.
        ASSERT_NO_FATAL_FAILURE(elargit(etroite, 300));
        const auto* vue = formulaire->findChild<QScrollArea*>();
        EXPECT_EQ(vue->horizontalScrollBar()->maximum(), 0) << "tab " << static_cast<int>(celui);
        EXPECT_GT(vue->verticalScrollBar()->maximum(), 0);
    }
}

TEST_P(LargeursTest, ButtonsAreSeenBelowTheFieldsHoweverLowTheWindowIs) {
    const auto* vue = formulaire->findChild<QScrollArea*>();
    for (const auto& [celui, boutons] :
         {std::pair(Onglet::Rapide, QStringList{u"cmdokrapide"_s, u"annulerrapide"_s}),
          std::pair(Onglet::Criteres, QStringList{u"cmdok"_s, u"annuler"_s, u"annulercriteres"_s}),
          std::pair(Onglet::Mots, QStringList{u"cmdokdico"_s, u"annulerdico"_s})}) {
        onglet(celui);
        for (const int largeur : {etroite, plusetroite, 1000}) {
            ASSERT_NO_FATAL_FAILURE(elargit(largeur, 240));
            EVENTUALLY(vue->verticalScrollBar()->maximum() > 0);
            for (const QString& nom : boutons) {
                EXPECT_TRUE(entier(bouton(nom))) << nom.toStdString() << " at " << largeur;
                EXPECT_GT(place(bouton(nom)).top(), place(*vue).bottom());
            }
            EXPECT_LE(std::abs(place(bouton(boutons[1])).right() - place(barre()).right()), look::grid) << largeur;
        }
        EXPECT_FALSE(bouton(celui == Onglet::Mots ? u"cmdok"_s : u"cmdokdico"_s).isVisible()) << "of another tab";
    }
}

TEST_P(LargeursTest, WhereButtonsHaveNoRoomBesideOneAnotherTheyStandAsTheTabKeyReachesThem) {
    onglet(Onglet::Criteres);
    ASSERT_NO_FATAL_FAILURE(elargit(etroite, 600));
    const QRect cherche = place(bouton(u"cmdok"_s));
    const QRect efface = place(bouton(u"annulercriteres"_s));
    EXPECT_EQ(place(bouton(u"annuler"_s)).top(), cherche.top());
    EXPECT_GT(efface.top(), cherche.bottom());
    EXPECT_EQ(efface.right(), place(bouton(u"annuler"_s)).right());
    ASSERT_NO_FATAL_FAILURE(elargit(plusetroite, 600));
    EXPECT_EQ(place(bouton(u"annulercriteres"_s)).top(), place(bouton(u"cmdok"_s)).top());
    EXPECT_LT(place(bouton(u"annulercriteres"_s)).right(), place(bouton(u"cmdok"_s)).left());
}

TEST_P(LargeursTest, TheLinesOfTheWordsHaveTheHeightThatIsLeftAndAreSeenInALowWindow) {
    onglet(Onglet::Mots);
    auto& resultat = un<QListWidget>(u"resultat"_s);
    resultat.addItems({u"vendeur : 29"_s, u"garantie : 27"_s});
    resultat.show();
    ASSERT_NO_FATAL_FAILURE(elargit(etroite, 300));
    EVENTUALLY(entier(resultat) && entier(bouton(u"cmdokdico"_s)));
    EVENTUALLY(std::abs(place(resultat).right() - place(barre()).right()) <= look::grid);
    ASSERT_NO_FATAL_FAILURE(elargit(1000, 1200));
    EVENTUALLY(entier(champ(u"Textedico"_s)) && resultat.height() > 500);
    EXPECT_EQ(formulaire->findChild<QScrollArea*>()->verticalScrollBar()->maximum(), 0);
}

TEST_P(LargeursTest, LabelsStandAboveTheirFieldsInANarrowFormAndBesideThemInAWideOne) {
    const QLabel& nom = un<QLabel>(u"libelrapide"_s);
    const QLineEdit& texterapide = champ(u"texterapide"_s);
    ASSERT_NO_FATAL_FAILURE(elargit(1000));
    EXPECT_LT(place(nom).right(), place(texterapide).left());
    EXPECT_TRUE(place(nom).contains(place(nom).left(), place(texterapide).center().y()));
    ASSERT_NO_FATAL_FAILURE(elargit(etroite));
    EXPECT_LT(place(nom).bottom(), place(texterapide).top());
    EXPECT_GT(place(texterapide).width(), etroite / 2) << "it keeps its words";
}

TEST_P(LargeursTest, WhatIsSearchedIsToldDirectlyUnderTheFieldAndTheRoomIsLeftAtTheFoot) {
    for (const auto& [celui, dernier, bouton] : {std::tuple(Onglet::Rapide, u"texterapide"_s, u"cmdokrapide"_s),
                                                 std::tuple(Onglet::Mots, u"Textedico"_s, u"cmdokdico"_s),
                                                 std::tuple(Onglet::Criteres, u"Option1"_s, u"cmdok"_s)}) {
        onglet(celui);
        ASSERT_NO_FATAL_FAILURE(elargit(1000, 1200));
        const QRect ici = place(un<QWidget>(dernier));
        const QRect lanceur = place(this->bouton(bouton));
        const QLabel* conseil = nullptr;
        for (const QLabel* label : onglets().currentWidget()->findChildren<QLabel*>())
            conseil = label->isVisible() && label->foregroundRole() == QPalette::PlaceholderText ? label : conseil;
        ASSERT_NE(conseil, nullptr) << dernier.toStdString();
        EXPECT_LE(place(*conseil).top() - ici.bottom(), 2 * look::spacing) << dernier.toStdString();
        EXPECT_LE(std::abs(place(*conseil).left() - ici.left()), look::grid) << dernier.toStdString();
        EXPECT_LT(lanceur.bottom(), 900) << dernier.toStdString();
        EXPECT_LE(lanceur.top() - place(*conseil).bottom(), 100) << dernier.toStdString();
    }
}

TEST_P(LargeursTest, FieldsBeginInOneLineAndLabelsStandAtTheMiddleOfThem) {
    onglet(Onglet::Criteres);
    ASSERT_NO_FATAL_FAILURE(elargit(1000));
    EXPECT_EQ(place(champ(u"texterech(0)"_s)).left(), place(champ(u"texterech(1)"_s)).left());
    EXPECT_EQ(place(un<QWidget>(u"prefixe"_s)).width(), place(un<QWidget>(u"conjonction"_s)).width());
    EXPECT_EQ(place(bouton(u"cmdok"_s)).top(), place(bouton(u"annulercriteres"_s)).top());
    EXPECT_GT(place(bouton(u"cmdok"_s)).left(), 500) << "the two stand at the right";
    const auto milieu = [this](const QLabel* label) { return place(*label).center().y(); };
    for (const QLabel* label : formulaire->findChildren<QLabel*>()) {
        const QWidget* champ = label->buddy();
        if (champ && champ->isVisible()) {
            EXPECT_NEAR(milieu(label), place(*champ).center().y(), 4) << nom(*label);
        }
    }
    const auto* collections = barre().findChild<QLabel*>();
    EXPECT_NEAR(milieu(collections), place(bouton(u"toutsélect"_s)).center().y(), 4);
}

TEST_P(LargeursTest, AWideFormIsNotAsHighAsANarrowOneWouldBe) {
    onglet(Onglet::Criteres);
    ASSERT_NO_FATAL_FAILURE(elargit(1000, 620));
    EXPECT_EQ(formulaire->findChild<QScrollArea*>()->verticalScrollBar()->maximum(), 0);
}

TEST_P(LargeursTest, ThePartsOfTheDateStandBehindOneAnother) {
    onglet(Onglet::Criteres);
    ASSERT_NO_FATAL_FAILURE(elargit(1000));
    EXPECT_LT(place(champ(u"textejour"_s)).left() - place(un<QWidget>(u"Option1"_s)).left(), 80);
    EXPECT_LT(place(champ(u"texteannée"_s)).left() - place(champ(u"textejour"_s)).left(), 220);
}

TEST_P(LargeursTest, EveryCollectionCanBePressedAtAnyWidth) {
    for (const int largeur : {plusetroite, 700, 800, 1024, pluslarge, plusetroite}) {
        ASSERT_NO_FATAL_FAILURE(elargit(largeur));
        for (int rang = 1; rang <= barre().buttonCount(); ++rang) {
            const QString cle = barre().keyAt(rang);
            const bool avant = barre().value(cle);
            const QPoint milieu = place(*barre().widget(cle)).center();
            QWidget* dessous = formulaire->childAt(milieu);
            ASSERT_EQ(dessous, barre().widget(cle)) << largeur << ' ' << cle.toStdString();
            QTest::mouseClick(dessous, Qt::LeftButton);
            EXPECT_NE(barre().value(cle), avant) << largeur << ' ' << cle.toStdString();
        }
    }
}

TEST_P(LargeursTest, NoControlLiesOnAnotherWhenTheTypeBecomesLarger) {
    onglet(Onglet::Criteres);
    ASSERT_NO_FATAL_FAILURE(elargit(1000));
    const auto rangees = [this] {
        std::set<int> hauts;
        for (int rang = 1; rang <= barre().buttonCount(); ++rang)
            hauts.insert(place(*barre().widget(barre().keyAt(rang))).top());
        return hauts.size();
    };
    const std::size_t avant = rangees();
    ASSERT_LE(avant, 4U) << "at least three in a row";
    QFont large = formulaire->font();
    large.setPointSizeF(large.pointSizeF() * 2);
    formulaire->setFont(large);
    formulaire->resize(1000, 1500);
    EVENTUALLY(rangees() > avant);
    EVENTUALLY(formulaire->findChild<QScrollArea*>()->verticalScrollBar()->maximum() == 0);
    verifie();
}

INSTANTIATE_TEST_SUITE_P(Langues, LargeursTest, testing::Values("FR", "EN"));
