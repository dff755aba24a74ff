#include "platform/widgets/frame/statusbar.h"

#include "platform/base/twips.h"
#include "platform/widgets/look/framestyle.h"
#include "platform/widgets/look/plaintext.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QHash>
#include <QPainter>

#include <algorithm>

namespace velm {

namespace {

constexpr int padding = 8;

/// A line of plain text that is elided when it does not fit.
class Line final : public QWidget {
public:
    Line(bool stretches, int minimum, QWidget* parent) : QWidget(parent), stretches_(stretches), minimum_(minimum) {
        setSizePolicy(stretches ? QSizePolicy::Ignored : QSizePolicy::Preferred, QSizePolicy::Fixed);
    }

    void setText(const QString& text) {
        if (text == text_)
            return;
        text_ = text;
        setAccessibleName(text);
        showWhole();
        if (!stretches_)
            updateGeometry();
        update();
    }

    QSize sizeHint() const override {
        const int width = stretches_ ? minimum_ : std::max(minimum_, fontMetrics().horizontalAdvance(text_) + 1);
        return {width, fontMetrics().height()};
    }
    QSize minimumSizeHint() const override { return {minimum_, fontMetrics().height()}; }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.setPen(palette().color(foregroundRole()));
        painter.drawText(rect(), Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, shown());
    }
    void resizeEvent(QResizeEvent*) override { showWhole(); }

private:
    QString shown() const { return fontMetrics().elidedText(text_.simplified(), Qt::ElideRight, width()); }
    void showWhole() { setToolTip(shown() == text_ ? QString() : plainTip(text_)); }

    bool stretches_;
    int minimum_;
    QString text_;
};

/// A panel: its line, and a thin rule on its left side.
class Panel final : public QWidget {
public:
    Panel(const QString& key, int stretch, int minimum, bool ruled, QWidget* parent)
        : QWidget(parent), line(new Line(stretch > 0, pixelsFromTwips(minimum), this)), ruled_(ruled) {
        setObjectName(key);
        auto* layout = new QHBoxLayout(this);
        layout->setContentsMargins(padding, 0, padding, 0);
        layout->addWidget(line, 1);
    }

    void refresh() { line->setText(passing.isEmpty() ? text : passing); }

    Line* line;
    QString text;
    QString passing;

protected:
    void paintEvent(QPaintEvent*) override {
        if (ruled_)
            QPainter(this).fillRect(0, 3, 1, height() - 6, quietLine(palette()));
    }

private:
    bool ruled_;
};

} // namespace

struct StatusBar::Private {
    QHash<QString, Panel*> panels;

    Panel* panel(const QString& key) const {
        Panel* found = panels.value(key);
        Q_ASSERT(found);
        return found;
    }
};

StatusBar::StatusBar(QWidget* parent) : QStatusBar(parent), d_(std::make_unique<Private>()) {
    setSizeGripEnabled(false);
}

StatusBar::~StatusBar() = default;

void StatusBar::addPanel(const QString& key, int stretch, int minimum) {
    Q_ASSERT(!d_->panels.contains(key));
    if (d_->panels.contains(key))
        return;
    auto* panel = new Panel(key, stretch, minimum, !d_->panels.isEmpty(), this);
    d_->panels.insert(key, panel);
    addWidget(panel, std::max(0, stretch));
}

void StatusBar::setPanelText(const QString& key, const QString& text) {
    if (Panel* panel = d_->panel(key)) {
        panel->text = text;
        panel->refresh();
    }
}

QString StatusBar::panelText(const QString& key) const {
    const Panel* panel = d_->panel(key);
    return panel ? panel->text : QString();
}

void StatusBar::setPassing(const QString& key, const QString& text) {
    if (Panel* panel = d_->panel(key)) {
        panel->passing = text;
        panel->refresh();
    }
}

} // namespace velm
