#pragma once
// The search form on a small base, over a list whose grid and panel only remember what they were told.
#include "platform/widgets/look/noteline.h"
#include "platform/widgets/look/plaintext.h"
#include "search/ui/barrecollections.h"
#include "search/ui/boitederniers.h"
#include "search/ui/frmvelmorselect.h"
#include "search/ui/listeavecvide.h"
#include "tests/search/controleliste_support.h"
#include "tests/search/criteres_support.h"
#include "tests/support/eventually.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QTabWidget>
#include <QTest>
#include <QToolButton>

namespace velm::test {

class FormulaireTest : public BaseCriteres {
protected:
    void SetUp() override {
        BaseCriteres::SetUp();
        for (int numero = 1; numero <= 6; ++numero)
            pieces.push_back(
                {u"CO"_s + sixchiffres(numero), u"Contrat %1"_s.arg(numero), u"Une clause."_s, {u"Vente"_s}});
        pieces.push_back({u"JP000001"_s, u"Arrêt"_s, u"Le juge."_s, {u"Prêt"_s}});
        ouvrepieces(true);
        ajoutemots({{u"CLAUSE"_s, entrees(1, 4)},
                    {u"CLAUSES"_s, entrees(2, 3)},
                    {u"CONTRAT"_s, entrees(3, 6)},
                    {u"PRÊT"_s, entree('C', 1)}});
        const auto table = corpus.base().openTable(u"motclés"_s);
        for (const QString& mot : {u"Prêt"_s, u"Vente"_s, u"Bail"_s}) {
            table->addNew();
            table->setValue(u"motcle"_s, mot);
            ASSERT_TRUE(table->update());
        }
        ouvreformulaire();
    }
    void TearDown() override { formulaire.reset(); }

    void ajoutemots(const std::vector<std::pair<QString, QByteArray>>& nouveaux) {
        const auto dico = corpus.base().openTable(u"dico"_s);
        for (const auto& [mot, postes] : nouveaux) {
            dico->addNew();
            dico->setValue(u"mot"_s, mot);
            dico->setValue(u"liste"_s, postes);
            ASSERT_TRUE(dico->update()) << qPrintable(dico->lastError());
        }
    }

    /// A form as at the next run of the program, with numbers for words or with those of a language.
    void ouvreformulaire(const Libelles& libelles = textes) {
        formulaire.reset();
        reglages.emplace(magasin);
        formulaire = std::make_unique<FrmVelmorSelect>(Formulaire::Services{remplissage, *reglages, libelles});
        QObject::connect(formulaire.get(), &FrmVelmorSelect::cachevoulu, formulaire.get(), [this] {
            ++caches;
            formulaire->hide();
        });
        formulaire->show();
        formulaire->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(formulaire.get()));
    }

    template <class Controle>
    Controle& un(const QString& nom) const {
        auto* const controle = formulaire->findChild<Controle*>(nom);
        if (!controle)
            throw std::runtime_error("no such control: " + nom.toStdString());
        return *controle;
    }
    QLineEdit& champ(const QString& nom) const { return un<QLineEdit>(nom); }
    QPushButton& bouton(const QString& nom) const { return un<QPushButton>(nom); }
    QComboBox& combo(const QString& nom) const { return un<QComboBox>(nom); }
    QCheckBox& coche(const QString& nom) const { return un<QCheckBox>(nom); }
    BarreCollections& barre() const { return un<BarreCollections>(u"barre_cran"_s); }
    /// Of the tab that is shown.
    NoteLine& note() const {
        for (NoteLine* une : formulaire->findChildren<NoteLine*>()) {
            if (!une->parentWidget()->isHidden())
                return *une;
        }
        throw std::runtime_error("no note");
    }
    QString bilan() const { return note().text(); }
    QTabWidget& onglets() const { return un<QTabWidget>(u"ongletrecherche"_s); }
    QProgressBar& progression() const { return un<QProgressBar>(u"ProgressBar"_s); }
    bool option2possible() const { return un<QRadioButton>(u"Option2"_s).isEnabled(); }
    bool option2() const { return un<QRadioButton>(u"Option2"_s).isChecked(); }
    bool option1() const { return un<QRadioButton>(u"Option1"_s).isChecked(); }

    void onglet(Onglet lequel) const { onglets().setCurrentIndex(static_cast<int>(lequel)); }
    void clique(const QString& nom) const { QTest::mouseClick(&bouton(nom), Qt::LeftButton); }
    void clique(QPushButton& celui) const { QTest::mouseClick(&celui, Qt::LeftButton); }
    QStringList lignes() const {
        QStringList toutes;
        const auto& resultat = un<QListWidget>(u"resultat"_s);
        for (int rang = 0; rang < resultat.count(); ++rang)
            toutes << resultat.item(rang)->text();
        return toutes;
    }
    QStringList derniersde(const QString& nom) const {
        QStringList tous;
        const auto& boite = *qobject_cast<QComboBox*>(champ(nom).parentWidget());
        for (int rang = 0; rang < boite.count(); ++rang)
            tous << boite.itemText(rang);
        return tous;
    }
    /// Does something at the first turn of the next search.
    void pendant(std::function<void()> chose) {
        evenement = [chose = std::move(chose), fait = false]() mutable {
            if (!std::exchange(fait, true))
                chose();
        };
    }

    QStringList cles() const {
        QStringList toutes;
        for (int rang = 1; rang < liste.rows(); ++rang)
            toutes << liste.cle(rang);
        return toutes;
    }

    GrilleEssai grille;
    PanneauEssai volet;
    QStringList& panneau = volet.etats;
    ReglagesStore magasin{dossier.filePath(u"reglages.ini"_s)};
    Reglages reglagesdelaliste{magasin};
    ImprimanteScript imprimante;
    ControleListe controleliste{{{corpus, sablier, dialogues, textes,
                                  [this] {
                                      if (evenement)
                                          evenement();
                                  },
                                  std::chrono::milliseconds(0)},
                                 reglagesdelaliste,
                                 imprimante},
                                grille,
                                volet};
    ListeSelection& liste = controleliste.liste();
    RemplissageListe& remplissage = controleliste.remplissage();
    std::optional<Reglages> reglages;
    std::unique_ptr<FrmVelmorSelect> formulaire;
    int caches = 0;
};

inline const QString chercher = u"t1124"_s;
inline const QString arreter = u"t2145"_s;

} // namespace velm::test
