#include "platform/widgets/paper/sheetsview.h"

#include "platform/base/twips.h"
#include "platform/widgets/look/look.h"

#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>

namespace velm {

namespace {

constexpr qsizetype kilobytesKept = 96 * 1024;
constexpr double zoomStepFactor = 1.25;

/// Of how many bytes a picture takes, in thousands.
qsizetype kilobytesOf(const QPixmap& picture) {
    constexpr qsizetype bytes = 4;
    return std::max<qsizetype>(1, bytes * picture.width() * picture.height() / 1024);
}

} // namespace

SheetsView::SheetsView(QWidget* parent) : QAbstractScrollArea(parent), pictures_(kilobytesKept) {
    setFocusPolicy(Qt::StrongFocus);
    setFrameShape(QFrame::NoFrame);
    viewport()->setAutoFillBackground(false);
}

SheetsView::~SheetsView() = default;

/// At 100 % a sheet has the size that paper has on this screen.
QSizeF SheetsView::sheetSize() const {
    if (job_ == nullptr)
        return {1, 1};
    return QSizeF(job_->width, job_->height) * (double(logicalDpiX()) / twipsPerInch);
}

void SheetsView::setJob(const JobPages* job) {
    job_ = job;
    painter_ = job ? std::make_unique<PagePainter>(*job) : nullptr;
    pictures_.clear();
    mark_ = -1;
    grow();
}

void SheetsView::grow() {
    place();
    viewport()->update();
    emit moved();
}

void SheetsView::setMark(int y, const QString& words) {
    mark_ = y;
    words_ = words;
    viewport()->update();
}

void SheetsView::place() {
    const QSize before = rows_.sheet(0).size();
    rows_.setRoom(viewport()->size());
    rows_.setSheets(sheetSize(), job_ ? static_cast<int>(job_->pages.size()) : 0);
    if (rows_.sheet(0).size() != before)
        pictures_.clear();
    const QSize all = rows_.size();
    const QSize room = viewport()->size();
    horizontalScrollBar()->setRange(0, std::max(0, all.width() - room.width()));
    horizontalScrollBar()->setPageStep(room.width());
    verticalScrollBar()->setRange(0, std::max(0, all.height() - room.height()));
    verticalScrollBar()->setPageStep(room.height());
    verticalScrollBar()->setSingleStep(std::max(1, room.height() / 12));
    horizontalScrollBar()->setSingleStep(std::max(1, room.width() / 12));
}

int SheetsView::current() const {
    if (rows_.count() == 0)
        return -1;
    const int middle = verticalScrollBar()->value() + viewport()->height() / 2;
    const int first = std::min(rows_.between(middle, middle).first, rows_.count() - 1);
    // At either end the first and the last one are meant.
    if (verticalScrollBar()->value() == 0)
        return 0;
    return verticalScrollBar()->value() == verticalScrollBar()->maximum() ? rows_.count() - 1 : first;
}

void SheetsView::showSheet(int number) {
    if (rows_.count() == 0)
        return;
    const QRect where = rows_.sheet(std::clamp(number, 0, rows_.count() - 1));
    verticalScrollBar()->setValue(where.top() - SheetRows::gap);
}

void SheetsView::setFit(SheetRows::Fit fit) {
    setFit(fit, rows_.zoom());
}

void SheetsView::setFit(SheetRows::Fit fit, double zoom) {
    const int sheet = current();
    rows_.setFit(fit, zoom);
    place();
    showSheet(sheet);
    viewport()->update();
    emit zoomed();
    emit moved();
}

void SheetsView::zoomStep(int steps) {
    const double middle =
        (verticalScrollBar()->value() + viewport()->height() / 2.0) / std::max(1, rows_.size().height());
    setFit(SheetRows::Fit::None, rows_.zoom() * std::pow(zoomStepFactor, steps));
    verticalScrollBar()->setValue(static_cast<int>(middle * rows_.size().height()) - viewport()->height() / 2);
    horizontalScrollBar()->setValue(horizontalScrollBar()->maximum() / 2);
}

// ---- painting

void SheetsView::paintEvent(QPaintEvent* event) {
    QPainter painter(viewport());
    painter.fillRect(event->rect(), look::sheet(Qt::white, palette()).surface);
    if (job_ == nullptr)
        return;
    const QPoint off(horizontalScrollBar()->value(), verticalScrollBar()->value());
    painter.translate(-off);
    const QRect seen = event->rect().translated(off);
    const auto [first, end] = rows_.between(seen.top(), seen.bottom());
    for (int number = first; number < end; ++number) {
        if (rows_.sheet(number).adjusted(-2, -2, 2, 2).intersects(seen))
            paintSheet(painter, number);
    }
}

void SheetsView::paintSheet(QPainter& painter, int number) {
    const QRect where = rows_.sheet(number);
    painter.setPen(look::sheet(Qt::white, palette()).edge);
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(where.adjusted(-1, -1, 0, 0));
    painter.drawPixmap(where, picture(number, where.size()));
    if (number + 1 == rows_.count() && mark_ >= 0)
        paintMark(painter, where);
    if (hasFocus() && number == current()) {
        painter.setPen(QPen(look::accentColour(look::themeOf(palette())), 2));
        painter.drawRect(where.adjusted(-2, -2, 2, 2));
    }
}

/// The last one may get more still: it is painted each time.
QPixmap SheetsView::picture(int number, QSize size) {
    if (const QPixmap* known = pictures_.object(number))
        return *known;
    const double density = devicePixelRatioF();
    QPixmap picture((QSizeF(size) * density).toSize());
    picture.setDevicePixelRatio(density);
    picture.fill(Qt::white);
    {
        QPainter painter(&picture);
        painter.scale(size.width() / job_->width, size.height() / job_->height);
        painter.translate(job_->offsetX, job_->offsetY);
        painter_->paint(painter, static_cast<std::size_t>(number));
    }
    if (number + 1 < rows_.count())
        pictures_.insert(number, new QPixmap(picture), kilobytesOf(picture));
    return picture;
}

void SheetsView::paintMark(QPainter& painter, const QRect& sheet) const {
    const int y = sheet.top() + static_cast<int>((mark_ + job_->offsetY) * sheet.height() / job_->height);
    if (!sheet.contains(sheet.center().x(), y))
        return;
    const QColor colour = look::warningColour(look::Theme::Light);
    painter.setPen(QPen(colour, 1, Qt::DashLine));
    painter.drawLine(sheet.left(), y, sheet.right(), y);
    QRect chip(QPoint(), painter.fontMetrics().size(Qt::TextSingleLine, words_) + QSize(2 * look::spacing, look::grid));
    if (chip.width() > sheet.width())
        return;
    chip.moveTopRight({sheet.right(), std::min(y + 1, sheet.bottom() - chip.height())});
    painter.fillRect(chip, colour);
    painter.setPen(Qt::white);
    painter.drawText(chip, Qt::AlignCenter, words_);
}

// ---- moving

void SheetsView::resizeEvent(QResizeEvent* event) {
    QAbstractScrollArea::resizeEvent(event);
    const int sheet = current();
    place();
    if (rows_.fit() != SheetRows::Fit::None)
        showSheet(sheet);
    emit zoomed();
}

void SheetsView::scrollContentsBy(int dx, int dy) {
    QAbstractScrollArea::scrollContentsBy(dx, dy);
    viewport()->update();
    emit moved();
}

void SheetsView::changeEvent(QEvent* event) {
    QAbstractScrollArea::changeEvent(event);
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::StyleChange)
        viewport()->update();
}

void SheetsView::walk(int rows) {
    showSheet(current() + rows * rows_.columns());
}

void SheetsView::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
    case Qt::Key_Home:
        showSheet(0);
        return;
    case Qt::Key_End:
        verticalScrollBar()->setValue(verticalScrollBar()->maximum());
        return;
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
        if (rows_.fit() == SheetRows::Fit::Page) {
            walk(event->key() == Qt::Key_PageDown ? 1 : -1);
            return;
        }
        break;
    default:
        break;
    }
    QAbstractScrollArea::keyPressEvent(event);
}

void SheetsView::wheelEvent(QWheelEvent* event) {
    if (!(event->modifiers() & Qt::ControlModifier)) {
        QAbstractScrollArea::wheelEvent(event);
        return;
    }
    if (event->angleDelta().y() != 0)
        zoomStep(event->angleDelta().y() > 0 ? 1 : -1);
    event->accept();
}

} // namespace velm
