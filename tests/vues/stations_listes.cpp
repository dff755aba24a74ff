// The windows that lead to documents without a search: the index, the dates.
#include "platform/widgets/frame/toolbar.h"
#include "platform/widgets/grid/flexgrid.h"
#include "search/ui/bandeannees.h"
#include "shell/ecrangeneral.h"
#include "shell/fenetretypes.h"
#include "tests/vues/stations.h"

#include <QTableView>
#include <QTest>
#include <QToolButton>

namespace velm::vues {

using namespace Qt::Literals::StringLiterals;

namespace {

/// The window of a list, filled; null where it does not come.
FenetreTypes* openList(Guide& guide, Ordre order, const QString& name) {
    guide.command(order);
    auto* const list = guide.host().frame()->findChild<FenetreTypes*>(name);
    if (!visibleOne(list) || !QTest::qWaitFor([list] { return !list->encours(); }, moment)) {
        guide.miss(name);
        return nullptr;
    }
    return list;
}

void sort(FenetreTypes& list, int place) {
    emit list.flex().doubleClicked(0, place);
    const bool done = QTest::qWaitFor([&list] { return !list.encours(); }, moment);
    Q_UNUSED(done)
}

/// With what all lists of this family have.
void lookAround(Guide& guide, FenetreTypes& list, const QString& name, int title) {
    guide.look(name);
    list.flex().setRow(2);
    list.flex().view()->setFocus();
    guide.rightClickRow(u"context-"_s + name, list.flex());
    sort(list, title);
    guide.look(name + u"-sorted"_s);
    guide.press(list.barre(), u"typeflex"_s);
    guide.look(name + u"-split"_s);
    guide.press(list.barre(), u"toutdéselect"_s);
    guide.look(name + u"-none"_s);
    guide.press(list.barre(), u"CO"_s);
    guide.look(name + u"-one-type"_s);
    guide.press(list.barre(), u"toutsélect"_s);
}

} // namespace

void index(Guide& guide) {
    FenetreTypes* const list = openList(guide, Ordre::Index, u"fIndex"_s);
    if (!list)
        return;
    lookAround(guide, *list, u"index"_s, 2);
    guide.tipOf(u"index-tip"_s, list->barre().widget(u"CO"_s));
    guide.command(Ordre::Index);
}

void chronology(Guide& guide) {
    FenetreTypes* const list = openList(guide, Ordre::Chrono, u"frmchrono"_s);
    if (!list)
        return;
    lookAround(guide, *list, u"chrono"_s, 3);
    auto* const strip = list->findChild<BandeAnnees*>();
    if (!visibleOne(strip))
        return guide.miss(u"the strip of years"_s);
    strip->setFocus(Qt::TabFocusReason);
    QTest::keyClick(strip, Qt::Key_End);
    QTest::keyClick(strip, Qt::Key_Return);
    guide.look(u"chrono-years"_s);
    guide.command(Ordre::Chrono);
}

} // namespace velm::vues
