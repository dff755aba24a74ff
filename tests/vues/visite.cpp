#include "tests/vues/visite.h"

#include "tests/vues/stations.h"

#include <QDir>
#include <QImage>
#include <QPainter>

namespace velm::vues {

using namespace Qt::Literals::StringLiterals;

namespace {

/// The partners' picture is the publisher's; the sample has none.
bool drawPartners(const QString& folder) {
    QImage picture(520, 300, QImage::Format_RGB32);
    picture.fill(Qt::white);
    QPainter painter(&picture);
    painter.fillRect(QRect(40, 40, 440, 60), QColor(0x1F, 0x4E, 0x79));
    painter.fillRect(QRect(40, 130, 200, 120), QColor(0xDD, 0xE1, 0xE6));
    painter.fillRect(QRect(280, 130, 200, 120), QColor(0xDD, 0xE1, 0xE6));
    painter.setPen(Qt::white);
    painter.drawText(QRect(40, 40, 440, 60), Qt::AlignCenter, u"Picture of the publisher's partners"_s);
    painter.end();
    return picture.save(QDir(folder).filePath(u"partners.bmp"_s));
}

} // namespace

QStringList walk(const Manner& manner, const Eye& eye) {
    Guide guide(manner, eye);
    withoutBase(guide);
    if (!guide.prepare(manner.base) || !drawPartners(guide.host().folder()))
        return {u"a copy of the collection"_s};
    splash(guide);
    firstStart(guide);
    if (!guide.host().frame())
        return {u"the frame"_s};
    for (const auto station : {&desk,       &firstClick,  &documents,  &panels,       &wordsInPanel,  &links,
                               &finding,    &properties,  &searchForm, &results,      &listOfResults, &index,
                               &chronology, &numbers,     &keywords,   &dossiers,     &printing,      &menus,
                               &popups,     &manyWindows, &bars,       &smallWindows, &fileQuestions, &end})
        station(guide);
    return guide.missed();
}

} // namespace velm::vues
