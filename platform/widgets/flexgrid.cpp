#include "platform/widgets/flexgrid.h"

#include <QTableView>

namespace velm {

struct FlexGrid::Private {
    QTableView* view = nullptr;
};

FlexGrid::FlexGrid(QWidget* parent) : QWidget(parent), d_(std::make_unique<Private>()) {
    d_->view = new QTableView(this);
}

FlexGrid::~FlexGrid() = default;

void FlexGrid::setCols(int) {}
int FlexGrid::cols() const {
    return 0;
}
void FlexGrid::setColWidth(int, int) {}
int FlexGrid::colWidth(int) const {
    return 0;
}
void FlexGrid::setColAlignment(int, Align) {}
void FlexGrid::setColData(int, int) {}
int FlexGrid::colData(int) const {
    return 0;
}
void FlexGrid::setColPosition(int, int) {}
void FlexGrid::setColumnsMovable(bool) {}
void FlexGrid::setStretchCol(int) {}
void FlexGrid::setHeader(int, const QString&) {}
QString FlexGrid::header(int) const {
    return {};
}
QString FlexGrid::headerCell(int) const {
    return {};
}
void FlexGrid::setHeaderFontSize(int) {}
int FlexGrid::rows() const {
    return 1;
}
void FlexGrid::setRows(int) {}
void FlexGrid::addItem(const QString&) {}
void FlexGrid::addItems(const std::vector<QStringList>&) {}
void FlexGrid::removeItem(int) {}
QString FlexGrid::text(int, int) const {
    return {};
}
void FlexGrid::setText(int, int, const QString&) {}
void FlexGrid::setSource(std::unique_ptr<GridSource>) {}
GridSource* FlexGrid::source() const {
    return nullptr;
}
void FlexGrid::sort(int, bool) {}
FlexGrid::Mark FlexGrid::sortMark(int) const {
    return Mark::None;
}
void FlexGrid::setSortMark(int, Mark) {}
void FlexGrid::setMergeCells(bool) {}
bool FlexGrid::mergeCells() const {
    return false;
}
int FlexGrid::row() const {
    return 0;
}
int FlexGrid::rowSel() const {
    return 0;
}
void FlexGrid::setRow(int) {}
void FlexGrid::setRowSel(int) {}
void FlexGrid::selectAll() {}
std::pair<int, int> FlexGrid::selectedRows() const {
    return {};
}
QString FlexGrid::clip() const {
    return {};
}
int FlexGrid::rowAt(const QPoint&) const {
    return -1;
}
int FlexGrid::topRow() const {
    return 1;
}
void FlexGrid::setTopRow(int) {}
void FlexGrid::setRedraw(bool) {}
QTableView* FlexGrid::view() const {
    return d_->view;
}
bool FlexGrid::eventFilter(QObject* watched, QEvent* event) {
    return QWidget::eventFilter(watched, event);
}
void FlexGrid::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
}

} // namespace velm
