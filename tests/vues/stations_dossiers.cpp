// The window of the dossiers: a tree of cases with what was stored in them.
#include "dossiers/ui/frmdossiers.h"
#include "platform/widgets/frame/toolbar.h"
#include "platform/widgets/list/listview.h"
#include "platform/widgets/tree/treeview.h"
#include "shell/fenetredossiers.h"
#include "tests/vues/stations.h"

#include <QApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

namespace velm::vues {

using namespace Qt::Literals::StringLiterals;

namespace {

frmdossiers* opened(Guide& guide) {
    return guide.host().program().dossiers().fenetre();
}

TreeView& tree(const frmdossiers& window) {
    return *window.findChild<TreeView*>(u"TreeView1"_s);
}

ListView& list(const frmdossiers& window) {
    return *window.findChild<ListView*>(u"contenudossier"_s);
}

void pressButton(const frmdossiers& window, const QString& name) {
    QTest::mouseClick(window.findChild<QPushButton*>(name), Qt::LeftButton);
}

void writeLabel(const QString& label) {
    // Letters beyond a keyboard's, too.
    if (auto* const editor = qobject_cast<QLineEdit*>(QApplication::focusWidget()))
        editor->setText(label);
    pressReturn();
}

/// A new dossier under the one that is selected; its key.
QString create(const frmdossiers& window, const QString& label) {
    pressButton(window, u"ajouter"_s);
    writeLabel(label);
    const TreeNodes& nodes = tree(window).nodes();
    return nodes.key(nodes.selected());
}

void select(const frmdossiers& window, const QString& key) {
    TreeView& view = tree(window);
    const int node = view.nodes().indexOf(key);
    view.setFocus();
    view.nodes().select(node);
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, view.visualRect(view.indexOf(node)).center());
}

void close(const frmdossiers& window) {
    pressButton(window, u"cmdok"_s);
    QCoreApplication::sendPostedEvents();
    const bool closed = QTest::qWaitFor([] { return QApplication::activeModalWidget() == nullptr; }, moment);
    Q_UNUSED(closed)
}

/// Hands the open document over, and drops it on a dossier.
void store(Guide& guide, const QString& key, const QString& picture = {}) {
    guide.command(Ordre::Ranger);
    const frmdossiers* const window = opened(guide);
    if (!window)
        return guide.miss(u"dossiers-store"_s);
    // What hangs on the pointer lies over nothing that is looked at.
    QTest::mouseMove(tree(*window).viewport(), tree(*window).viewport()->rect().bottomLeft() - QPoint(0, 60));
    if (!picture.isEmpty())
        guide.look(picture, QApplication::activeModalWidget());
    select(*window, key);
    pressReturn();
    close(*window);
}

/// Deletes an item and finds it again.
void losses(Guide& guide, const frmdossiers& window) {
    list(window).setFocus();
    QTest::keyClick(&list(window), Qt::Key_Delete);
    pressButton(window, u"retrouver"_s);
    QWidget* const lost = window.findChild<QWidget*>(u"pertes"_s);
    if (!lost)
        return guide.miss(u"dossiers-losses"_s);
    guide.look(u"dossiers-losses"_s, lost);
    QTest::mouseClick(lost->findChild<QPushButton*>(u"remettre"_s), Qt::LeftButton);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

} // namespace

void dossiers(Guide& guide) {
    guide.command(Ordre::Dossiers);
    frmdossiers* window = opened(guide);
    if (!window)
        return guide.miss(u"dossiers"_s);
    guide.look(u"dossiers-empty"_s, window);
    const QString cases = create(*window, u"Clients"_s);
    const QString one = create(*window, u"Martin contre Garage du Centre"_s);
    create(*window, u"Pièces"_s);
    select(*window, cases);
    create(*window, u"Dupont – vente à distance et délai de rétractation"_s);
    select(*window, u"X  0"_s);
    create(*window, u"Veille"_s);
    select(*window, one);
    pressButton(*window, u"renommer"_s);
    guide.look(u"dossiers-rename"_s, window);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    close(*window);

    guide.open(sampleArticle);
    store(guide, one, u"dossiers-waiting"_s);
    for (const QString& document : {sampleTable, sampleTinted, sampleLetter}) {
        guide.open(document);
        store(guide, one);
    }
    guide.command(Ordre::Dossiers);
    window = opened(guide);
    if (!window)
        return guide.miss(u"dossiers-filled"_s);
    select(*window, one);
    guide.look(u"dossiers-items"_s, window);
    list(*window).setFocus();
    QTest::keyClick(&list(*window), Qt::Key_Down);
    guide.look(u"dossiers-item"_s, window);
    pressButton(*window, u"renommer"_s);
    guide.look(u"dossiers-item-rename"_s, window);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    for (const QString& view : {u"LargesIcones"_s, u"SmallIcones"_s}) {
        guide.press(*window->findChild<Toolbar*>(u"tlbHierarchie"_s), view);
        guide.look(u"dossiers-"_s + view.toLower(), window);
    }
    losses(guide, *window);
    select(*window, cases);
    guide.lookAtWhatComes(u"dossiers-delete"_s, [window] { pressButton(*window, u"supprimer"_s); });
    window->resize(window->minimumSize());
    guide.look(u"dossiers-small"_s, window);
    close(*window);
}

} // namespace velm::vues
