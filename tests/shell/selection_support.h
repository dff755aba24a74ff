#pragma once
// The selection list of the real frame on a small base with an index of words.
#include "core/schemas.h"
#include "platform/widgets/frame/statusbar.h"
#include "platform/widgets/grid/flexgrid.h"
#include "shell/bureau.h"
#include "shell/selection.h"
#include "shell/volet.h"
#include "tests/shell/ecran_support.h"

#include <QHeaderView>
#include <QTableView>

namespace velm::test {

inline constexpr int couleurdesmarques = 0x002E5C; // as the publisher gives it

inline QByteArray postings(const std::vector<std::pair<char, int>>& entrees) {
    QByteArray octets;
    for (const auto& [lettre, numero] : entrees) {
        octets += lettre;
        for (const int decalage : {16, 8, 0})
            octets += static_cast<char>(numero >> decalage & 0xFF);
    }
    return octets;
}

class SelectionTest : public EcranTest {
protected:
    void SetUp() override {
        EcranTest::SetUp();
        const auto base =
            Database::open(dossier.filePath(QStringLiteral("velm2000.dat")), OpenMode::Shared, corpusSchema());
        ASSERT_NE(base.database, nullptr);
        TableWriter dico(*base.database, QStringLiteral("dico"), {QStringLiteral("mot"), QStringLiteral("liste")});
        ASSERT_TRUE(dico.add({QStringLiteral("DEUX"), postings({{'A', 2}, {'A', 4}, {'C', 7}, {'A', 99}})}));
        ASSERT_TRUE(dico.add({QStringLiteral("PRIX"), postings({{'A', 1}, {'A', 2}, {'A', 3}, {'A', 4}, {'C', 7}})}));
    }
    std::vector<DocumentEssai> documents() const override {
        const auto corps = [](const char* mot) {
            QByteArray texte = "{\\rtf1\\ansi Le prix, " + QByteArray(mot) + " fois.\\par ";
            for (int ligne = 0; ligne < 60; ++ligne)
                texte += "Rien.\\par ";
            return texte + "Deux prix.\\par}";
        };
        return {{QStringLiteral("CO000001"), QStringLiteral("Béta"), corps("un")},
                {QStringLiteral("CO000002"), QStringLiteral("alpha"), corps("deux")},
                {QStringLiteral("CO000003"), QStringLiteral("Delta"), corps("trois")},
                {QStringLiteral("CO000004"), QStringLiteral("gamma"), corps("deux")},
                {QStringLiteral("JP000007"), QStringLiteral("Un arrêt"), corps("deux")}};
    }
    void ouvre(const QStringList& cles = {QStringLiteral("CO000001"), QStringLiteral("CO000002"),
                                          QStringLiteral("CO000003"), QStringLiteral("CO000004"),
                                          QStringLiteral("JP000007")}) {
        ASSERT_EQ(demarre(QString()), Demarrage::EnMarche);
        if (!cles.isEmpty())
            remplissage().remplitdecles(cles);
    }
    ControleListe& liste() const { return programme->selection().controle(); }
    RemplissageListe& remplissage() const { return liste().remplissage(); }
    /// The end of a search that has found a document, or none.
    void acheve(bool trouve) const {
        Lignes& lignes = liste().liste().resultat().lignes;
        lignes.vide();
        if (trouve)
            lignes.ajoute({u"CO", u"000001", u"Béta", u"", u"", u"", u"CO000001"});
        remplissage().acheve();
    }
    FlexGrid& flex() const { return programme->selection().flex(); }
    Toolbar& barre() const { return volet().recherchetoolbar(); }
    QString etat() const { return barreetat().panelText(QStringLiteral("wait")); }
    Textes* active() const { return programme->bureau().active(); }
    bool enabled(const char* cle) const { return barre().isButtonEnabled(QString::fromUtf8(cle)); }
    QStringList colonne(int place) const {
        QStringList textes;
        for (int ligne = 1; ligne < flex().rows(); ++ligne)
            textes << flex().text(ligne, place);
        return textes;
    }
    QPoint milieu(int ligne) const {
        return flex().view()->visualRect(flex().view()->model()->index(ligne - 1, 0)).center();
    }
    void doubleclic(int ligne) const {
        QTest::mouseClick(flex().view()->viewport(), Qt::LeftButton, {}, milieu(ligne));
        QTest::mouseDClick(flex().view()->viewport(), Qt::LeftButton, {}, milieu(ligne));
    }
    QPoint milieuentete(int place) const {
        const QHeaderView* entete = flex().view()->horizontalHeader();
        const int colonne = entete->logicalIndex(place);
        return {entete->sectionViewportPosition(colonne) + entete->sectionSize(colonne) / 2, entete->height() / 2};
    }
    void doublecliqueentete(int place) const {
        QWidget* surface = flex().view()->horizontalHeader()->viewport();
        QTest::mouseClick(surface, Qt::LeftButton, {}, milieuentete(place));
        QTest::mouseDClick(surface, Qt::LeftButton, {}, milieuentete(place));
        QTest::mouseRelease(surface, Qt::LeftButton, {}, milieuentete(place));
    }
    static int marques(const Textes& fenetre) {
        int nombre = 0;
        const RichText& texte = fenetre.vue().control().richText();
        texte.forEachRun(0, texte.length(), [&](qsizetype, qsizetype, FormatId format) {
            nombre += texte.charFormat(format).colour == couleurdesmarques ? 1 : 0;
        });
        return nombre;
    }
    QAction* menu(const char* nom) const { return ecran().findChild<QAction*>(QString::fromUtf8(nom)); }
};

} // namespace velm::test
