// The frame: its start, its desk, its menus and small windows, its end.
#include "core/langue.h"
#include "core/texte.h"
#include "document/ui/textes.h"
#include "platform/widgets/frame/childarea.h"
#include "platform/widgets/frame/toolbar.h"
#include "platform/widgets/text/richtextbox.h"
#include "shell/actions.h"
#include "shell/ecrangeneral.h"
#include "shell/splash.h"
#include "tests/vues/stations.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QTest>
#include <QToolButton>

namespace velm::vues {

using namespace Qt::Literals::StringLiterals;

void withoutBase(Guide& guide) {
    guide.prepare({});
    QFile::remove(QDir(guide.host().folder()).filePath(u"velm2000.dat"_s));
    guide.lookAtWhatComes(u"base-not-found"_s, [&guide] { guide.start(); });
    guide.forget();
}

void splash(Guide& guide) {
    const QString folder = guide.host().folder();
    Langue language([](const QString&) {});
    language.choisitfichier(folder, folder, guide.manner().language);
    frmSplash window({language.lireressource(Texte::NomDuProgramme),
                      language.lireressource(Texte::Version) + u" 1.0.0"_s, language.lireressource(Texte::NomComplet)});
    window.changeetape(language.lireressource(Texte::Recherche));
    window.show();
    guide.look(u"splash"_s, &window);
}

void firstStart(Guide& guide) {
    if (!guide.start())
        return;
    QWidget* const tip = QApplication::activeModalWidget();
    if (!tip)
        return guide.miss(u"first-start-tip"_s);
    guide.look(u"first-start-tip"_s, tip);
    dismiss(*tip);
}

void desk(Guide& guide) {
    guide.look(u"desk"_s);
    auto* const field = guide.host().frame()->pieces().aire.findChild<QLineEdit*>();
    if (!visibleOne(field))
        return guide.miss(u"the search field of the desk"_s);
    for (const auto& [words, name] :
         {std::pair{u"garantie"_s, u"desk-found"_s}, {u"zzzqq"_s, u"desk-nothing-found"_s}}) {
        field->setFocus();
        field->selectAll();
        QTest::keyClicks(field, words);
        guide.look(name);
    }
    field->clear();
}

void firstClick(Guide& guide) {
    const Toolbar* const bar = guide.frameBar(u"barreécran"_s);
    if (!bar)
        return guide.miss(u"first-click"_s);
    guide.press(*bar, u"CO"_s);
    guide.look(u"first-click"_s);
    guide.tipOf(u"tip-of-a-button"_s, bar->widget(u"JP"_s));
}

void manyWindows(Guide& guide) {
    for (const auto& [order, name] : {std::pair{Ordre::Cascade, u"windows-cascade"_s},
                                      {Ordre::Horizontalement, u"windows-rows"_s},
                                      {Ordre::Verticalement, u"windows-columns"_s}}) {
        guide.command(order);
        guide.look(name);
    }
    const Textes* const front = guide.front();
    QMdiSubWindow* const window = front ? guide.host().frame()->pieces().aire.around(front) : nullptr;
    if (!window)
        return guide.miss(u"windows-icon"_s);
    window->showMinimized();
    guide.look(u"windows-icon"_s);
    window->showMaximized();
}

void bars(Guide& guide) {
    guide.command(Ordre::PlaceCommande, 3);
    guide.command(Ordre::PlaceEcran, 1);
    guide.look(u"bars-elsewhere"_s);
    guide.command(Ordre::PlaceCommande, 1);
    guide.command(Ordre::PlaceEcran, 3);
    guide.rightClick(u"context-commands"_s, guide.frameBar(u"barrecommande"_s));
    guide.rightClick(u"context-collections"_s, guide.frameBar(u"barreécran"_s));
}

void menus(Guide& guide) {
    guide.open(sampleArticle);
    QMenuBar& bar = *guide.host().frame()->menuBar();
    for (QAction* const action : bar.actions()) {
        const QMenu* const menu = action->menu();
        if (menu && action->isVisible() && action->isEnabled())
            guide.lookAtWhatComes(u"menu-"_s + menu->objectName(), [&] { bar.setActiveAction(action); });
    }
    auto* const places = guide.host().frame()->findChild<QMenu*>(u"maffichage0(1)"_s);
    if (!places)
        return guide.miss(u"menu-places-of-a-bar"_s);
    guide.lookAtWhatComes(u"menu-places-of-a-bar"_s,
                          [&] { places->popup(guide.host().frame()->mapToGlobal(QPoint(160, 120))); });
}

void popups(Guide& guide) {
    guide.open(sampleTinted);
    guide.open(sampleArticle);
    if (!guide.front())
        return guide.miss(u"context-text"_s);
    guide.rightClick(u"context-text"_s, guide.front()->vue().viewport());
    const auto drop = [&guide](const Toolbar* bar, const QString& name) {
        QToolButton* const back = bar ? bar->widget(u"Précédent"_s) : nullptr;
        if (visibleOne(back) && back->isEnabled())
            guide.lookAtWhatComes(name, [back] { back->showMenu(); });
        else
            guide.miss(name);
    };
    drop(guide.frameBar(u"barrecommande"_s), u"menu-history"_s);
    guide.open(u"CO000002"_s);
    if (guide.front())
        drop(&guide.front()->barrechild(), u"menu-history-of-a-window"_s);
}

void smallWindows(Guide& guide) {
    for (const auto& [order, name] :
         {std::pair{Ordre::Astuce, u"tip"_s}, {Ordre::APropos, u"about"_s}, {Ordre::Partenaires, u"partners"_s}}) {
        const Ordre chosen = order;
        guide.lookAtWhatComes(name, [&] { guide.command(chosen); });
    }
    if (guide.host().frame()->pieces().actions.de(Ordre::Aide).isEnabled())
        guide.lookAtWhatComes(u"help-missing"_s, [&guide] { guide.command(Ordre::Aide); });
}

void fileQuestions(Guide& guide) {
    guide.lookAtWhatComes(u"question-save-criteria"_s, [&guide] { guide.command(Ordre::SauverCriteres); });
    guide.lookAtWhatComes(u"question-open-criteria"_s, [&guide] { guide.command(Ordre::OuvrirCriteres); });
}

void end(Guide& guide) {
    guide.lookAtWhatComes(u"question-end"_s, [&guide] { guide.command(Ordre::Quitter); });
    guide.forget();
}

} // namespace velm::vues
