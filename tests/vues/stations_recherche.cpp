// The search form and the list of what it finds.
#include "document/ui/textes.h"
#include "platform/widgets/frame/toolbar.h"
#include "platform/widgets/grid/flexgrid.h"
#include "shell/ecrangeneral.h"
#include "shell/volet.h"
#include "tests/vues/stations.h"

#include <QComboBox>
#include <QTableView>
#include <QTest>

namespace velm::vues {

using namespace Qt::Literals::StringLiterals;

namespace {

/// As a user does: by the button of the panel, and once a list stands in it by the one over the list.
void showForm(Guide& guide) {
    if (!guide.host().frame()->pieces().volet.isVisible())
        guide.command(Ordre::Rechercher);
    if (!visibleOne(guide.form()))
        guide.command(Ordre::AfficherCriteres);
}

} // namespace

void searchForm(Guide& guide) {
    showForm(guide);
    int number = 0;
    for (const auto& name : {u"form-quick"_s, u"form-criteria"_s, u"form-words"_s}) {
        guide.tab(number++);
        guide.look(name);
    }
    guide.lookAtOffer(u"form-words-offered"_s, guide.form(), u"Textedico"_s, u"gara"_s);
    guide.tab(1);
    auto* const types = guide.form() ? guide.form()->findChild<QComboBox*>(u"combotype"_s) : nullptr;
    if (!visibleOne(types))
        return guide.miss(u"form-types"_s);
    types->setFocus(); // in a low window it lies out of sight until then
    QCoreApplication::processEvents();
    types->showPopup();
    guide.look(u"form-types"_s);
    types->hidePopup();
}

void results(Guide& guide) {
    guide.tab(0);
    guide.type(guide.form(), u"texterapide"_s, u"zzzqq"_s);
    pressReturn();
    guide.look(u"results-nothing"_s);
    while (QWidget* const box = foremost())
        dismiss(*box);
    showForm(guide);
    guide.tab(2);
    guide.type(guide.form(), u"Textedico"_s, u"vendeur garantie"_s);
    dismissOffer();
    pressReturn();
    const auto& panel = guide.host().frame()->pieces().volet;
    if (!QTest::qWaitFor([&] { return panel.isVisible() && panel.flex().rows() > 2; }, moment))
        guide.miss(u"rows of results"_s);
    guide.look(u"results-narrow"_s);
}

void listOfResults(Guide& guide) {
    auto& panel = guide.host().frame()->pieces().volet;
    panel.flex().setRow(1);
    panel.flex().view()->setFocus();
    QTest::keyClick(panel.flex().view(), Qt::Key_Return);
    if (!QTest::qWaitFor([&guide] { return visibleOne(guide.front()) != nullptr; }, moment))
        guide.miss(u"results-marks"_s);
    guide.look(u"results-marks"_s);
    guide.pressInWindow(u"motsuivant"_s);
    guide.look(u"results-next-mark"_s);
    guide.rightClickRow(u"context-results"_s, panel.flex());
    const double narrow = panel.largeurpane();
    constexpr double wider = 2.6;
    panel.changelargeurpane(wider * narrow);
    guide.look(u"results-wide"_s);
    guide.press(panel.recherchetoolbar(), u"regrouper"_s);
    guide.look(u"results-grouped"_s);
    guide.press(panel.recherchetoolbar(), u"regrouper"_s);
    panel.changelargeurpane(narrow);
    guide.command(Ordre::Rechercher);
}

} // namespace velm::vues
