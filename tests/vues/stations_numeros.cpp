// The searches by number and by keyword.
#include "platform/widgets/frame/toolbar.h"
#include "platform/widgets/grid/flexgrid.h"
#include "shell/ecrangeneral.h"
#include "shell/fenetremotcle.h"
#include "shell/fenetrenumero.h"
#include "tests/vues/stations.h"

#include <QLineEdit>
#include <QTableView>
#include <QTest>

namespace velm::vues {

using namespace Qt::Literals::StringLiterals;

namespace {

template <typename Window>
Window* openSearch(Guide& guide, Ordre order) {
    guide.command(order);
    auto* const window = guide.host().frame()->findChild<Window*>();
    return visibleOne(window) ? window : nullptr;
}

void lookFor(Guide& guide, const FenetreNumero& window, const QString& field, const QString& number) {
    guide.type(&window, field, number);
    pressReturn();
    const bool done = QTest::qWaitFor([&window] { return !window.encours(); }, moment);
    Q_UNUSED(done)
}

} // namespace

void numbers(Guide& guide) {
    FenetreNumero* const window = openSearch<FenetreNumero>(guide, Ordre::Numero);
    if (!window)
        return guide.miss(u"numbers"_s);
    guide.look(u"numbers"_s);
    lookFor(guide, *window, u"noart"_s, u"R*"_s);
    guide.look(u"numbers-found"_s);
    emit window->flex().doubleClicked(0, ListeNumero::Titre);
    window->flex().setRow(2);
    window->flex().view()->setFocus();
    guide.rightClickRow(u"context-numbers"_s, window->flex());
    guide.look(u"numbers-sorted"_s);
    lookFor(guide, *window, u"notexte"_s, u"ZZ-9999"_s);
    guide.look(u"numbers-nothing"_s);
    guide.command(Ordre::Numero);
}

void keywords(Guide& guide) {
    FenetreMotcle* const window = openSearch<FenetreMotcle>(guide, Ordre::MotCle);
    if (!window)
        return guide.miss(u"keywords"_s);
    guide.look(u"keywords"_s);
    emit window->flex().doubleClicked(0, 1);
    emit window->flex().doubleClicked(0, 1);
    guide.look(u"keywords-sorted"_s);
    window->flex().setRow(2);
    window->flex().view()->setFocus();
    QTest::keyClick(window->flex().view(), Qt::Key_Return);
    guide.look(u"keywords-listed"_s);
    guide.rightClickRow(u"context-keywords"_s, window->flex());
    guide.command(Ordre::MotCle);
}

} // namespace velm::vues
