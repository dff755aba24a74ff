#pragma once
// The sheets of a print job on the screen: side by side, at any size, painted as they come out. The sheets may become
// more while they are looked at.
#include "platform/paper/pagepainter.h"
#include "platform/widgets/paper/sheetrows.h"

#include <QAbstractScrollArea>
#include <QCache>
#include <QPixmap>

#include <memory>

namespace velm {

class SheetsView final : public QAbstractScrollArea {
    Q_OBJECT

public:
    explicit SheetsView(QWidget* parent = nullptr);
    ~SheetsView() override;

    /// Shows the sheets of a job, which is not owned and stays as it is until the next call; null for none.
    void setJob(const JobPages* job);
    /// More sheets have come to the end of the job, or the last one is done.
    void grow();
    /// A line across the last sheet with words beside it, twips from the top of what can be printed; -1 for none.
    void setMark(int y, const QString& words);

    int count() const { return rows_.count(); }
    /// From 0: the sheet in the middle of what is seen; -1 without one.
    int current() const;
    void showSheet(int number);
    /// So many rows of sheets further down.
    void walk(int rows);

    double zoom() const { return rows_.zoom(); }
    SheetRows::Fit fit() const { return rows_.fit(); }
    void setFit(SheetRows::Fit fit);
    /// A step larger or smaller, about what is in the middle.
    void zoomStep(int steps);

signals:
    /// Another sheet is the current one, or there are more.
    void moved();
    /// The zoom is another, or what it fits.
    void zoomed();

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    QSizeF sheetSize() const;
    void setFit(SheetRows::Fit fit, double zoom);
    void place();
    void paintSheet(QPainter& painter, int number);
    QPixmap picture(int number, QSize size);
    void paintMark(QPainter& painter, const QRect& sheet) const;

    const JobPages* job_ = nullptr;
    std::unique_ptr<PagePainter> painter_;
    SheetRows rows_;
    QCache<int, QPixmap> pictures_; ///< by number, of the sheets that are done
    int mark_ = -1;
    QString words_;
};

} // namespace velm
