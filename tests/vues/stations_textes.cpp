// The document windows: their panel, their text, their lists.
#include "document/ui/listedeliens.h"
#include "document/ui/textes.h"
#include "document/ui/voletliens.h"
#include "platform/widgets/frame/childarea.h"
#include "platform/widgets/grid/flexgrid.h"
#include "shell/ecrangeneral.h"
#include "shell/volet.h"
#include "tests/vues/stations.h"

#include <QApplication>
#include <QMdiSubWindow>
#include <QRegularExpression>
#include <QTableView>
#include <QTest>
#include <QToolButton>

#include <algorithm>
#include <tuple>

namespace velm::vues {

using namespace Qt::Literals::StringLiterals;

namespace {

/// One that is found: of another collection the article has other words.
QString wordOf(const QString& text) {
    const QString usual = u"taux"_s;
    const auto longer = QRegularExpression(u"\\w{6,}"_s).match(text);
    return text.contains(usual) || !longer.hasMatch() ? usual : longer.captured();
}

/// A top-level window of a name that is seen; null for none.
QWidget* windowNamed(const QString& name) {
    const QWidgetList all = QApplication::topLevelWidgets();
    const auto found = std::ranges::find_if(
        all, [&](const QWidget* window) { return window->objectName() == name && window->isVisible(); });
    return found == all.end() ? nullptr : *found;
}

} // namespace

void documents(Guide& guide) {
    for (const auto& [key, name] : {std::pair{sampleTinted, u"document-tinted"_s},
                                    {sampleTable, u"document-table"_s},
                                    {sampleLetter, u"document-letter"_s},
                                    {sampleArticle, u"document"_s}}) {
        guide.open(key);
        guide.look(name);
    }
    guide.pressInWindow(u"abc"_s);
    guide.look(u"document-condensed"_s);
    guide.pressInWindow(u"abc"_s);
    const Textes* const front = guide.front();
    QMdiSubWindow* const window = front ? guide.host().frame()->pieces().aire.around(front) : nullptr;
    if (!window)
        return guide.miss(u"document-in-a-window"_s);
    const bool filling = window->isMaximized();
    window->showNormal();
    guide.look(u"document-in-a-window"_s);
    window->showMaximized();
    guide.look(u"document-maximised"_s);
    if (!filling)
        window->showNormal();
}

void panels(Guide& guide) {
    for (const auto& [key, block] :
         {std::pair{u"recherchedico"_s, u"words"_s}, {u"tableau"_s, u"list"_s}, {u"arbre"_s, u"tree"_s}}) {
        guide.pressInWindow(key);
        for (const auto& [side, place] : {std::pair{u"barreverti"_s, u"above"_s}, {u"barrehoriz"_s, u"left"_s}}) {
            guide.pressInWindow(side);
            guide.look(u"panel-%1-%2"_s.arg(block, place));
        }
    }
}

void wordsInPanel(Guide& guide) {
    guide.pressInWindow(u"recherchedico"_s);
    guide.lookAtOffer(u"panel-words-offered"_s, guide.front(), u"Textedico"_s, u"gara"_s);
    for (const auto& [words, name, side] : {std::tuple{u"zzzqq"_s, u"panel-words-nothing-above"_s, u"barreverti"_s},
                                            {u"zzzqq"_s, u"panel-words-nothing"_s, u"barrehoriz"_s},
                                            {u"garantie"_s, u"panel-words-found"_s, u"barrehoriz"_s}}) {
        guide.pressInWindow(side);
        guide.type(guide.front(), u"Textedico"_s, words);
        dismissOffer();
        pressReturn();
        guide.look(name);
    }
    if (guide.host().frame()->pieces().volet.isVisible())
        guide.command(Ordre::Rechercher);
    guide.pressInWindow(u"arbre"_s);
}

void links(Guide& guide) {
    const auto turn = [&guide] {
        for (const ListeDeLiens* const list : {&guide.front()->volet().liens(), &guide.front()->volet().correlats()})
            list->bouton()->click();
    };
    const auto open = [&guide] { return guide.front()->volet().liens().grille()->isVisible(); };
    guide.open(sampleArticle);
    if (!guide.front())
        return guide.miss(u"links"_s);
    guide.look(u"links-closed"_s);
    turn();
    guide.look(u"links-open"_s);
    FlexGrid* const cited = guide.front()->volet().liens().grille();
    // Of another collection the article may cite nothing.
    FlexGrid* const listed = cited->rows() > 1 ? cited : guide.front()->volet().correlats().grille();
    listed->setRow(1);
    guide.rightClickRow(u"context-links"_s, *listed);
    guide.open(sampleTable);
    if (!open())
        turn();
    guide.look(u"links-empty"_s);
    turn();
}

void finding(Guide& guide) {
    guide.open(sampleArticle);
    guide.command(Ordre::Chercher);
    QWidget* const finder = windowNamed(u"frmFindForm"_s);
    if (!finder)
        return guide.miss(u"find"_s);
    guide.look(u"find"_s, finder);
    guide.type(finder, u"txtFind"_s, wordOf(guide.front()->vue().control().text()));
    pressReturn();
    guide.look(u"find-found"_s, finder);
    guide.type(finder, u"txtFind"_s, u"zzzqq"_s);
    guide.lookAtWhatComes(u"find-not-found-box"_s, pressReturn);
    guide.look(u"find-not-found"_s, finder);
    dismiss(*finder);
}

void properties(Guide& guide) {
    guide.pressInWindow(u"propriétés"_s);
    QWidget* window = nullptr;
    const auto comes = [&] { return (window = windowNamed(u"frmproperties"_s)) != nullptr; };
    if (!QTest::qWaitFor(comes, moment))
        return guide.miss(u"properties"_s);
    guide.look(u"properties"_s, window);
    window->close();
}

} // namespace velm::vues
