// What leaves the program on paper: the preview, the open job, the printer.
#include "document/ui/textes.h"
#include "platform/widgets/frame/toolbar.h"
#include "platform/widgets/paper/sheetsview.h"
#include "print/ui/frmapercu.h"
#include "shell/impressions.h"
#include "tests/vues/stations.h"

#include <QPushButton>
#include <QTest>

namespace velm::vues {

using namespace Qt::Literals::StringLiterals;

namespace {

FrmApercu* preview(Guide& guide) {
    return guide.host().program().impressions().fenetreapercu();
}

void pressIn(const FrmApercu& window, const QString& button) {
    QTest::mouseClick(window.findChild<QPushButton*>(button), Qt::LeftButton);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void lookAtPreview(Guide& guide, const QString& name, const QString& end) {
    guide.command(Ordre::Apercu);
    FrmApercu* const window = preview(guide);
    if (!window)
        return guide.miss(name);
    guide.look(name, window);
    window->vue().setFit(SheetRows::Fit::Width);
    guide.look(name + u"-wide"_s, window);
    for (int step = 0; step < 6; ++step)
        window->vue().zoomStep(-1);
    guide.look(name + u"-small"_s, window);
    pressIn(*window, end);
}

} // namespace

void printing(Guide& guide) {
    guide.open(sampleTable);
    lookAtPreview(guide, u"preview"_s, u"fermer"_s);
    guide.lookAtWhatComes(u"printer"_s, [&guide] { guide.command(Ordre::ConfigurerImprimante); });
    guide.command(Ordre::Imprimer);
    if (!guide.host().program().impressions().impressionouverte())
        return guide.miss(u"job"_s);
    guide.open(sampleArticle);
    guide.command(Ordre::ImprimerPage);
    guide.look(u"job"_s);
    lookAtPreview(guide, u"preview-job"_s, u"abandonner"_s);
}

} // namespace velm::vues
