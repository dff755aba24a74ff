#include "platform/widgets/frame/statusbar.h"

#include "platform/base/twips.h"
#include "platform/widgets/look/framestyle.h"
#include "platform/widgets/look/plaintext.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QHash>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int padding = 8;

/// A line of plain text that is elided when it does not fit.
class Line final : public QWidget {
public:
    Line(bool stretches, int minimum, QWidget* parent) : QWidget(parent), stretches_(stretches), minimum_(minimum) {
        setSizePolicy(stretches ? QSizePolicy::Ignored : QSizePolicy::Preferred, QSizePolicy::Fixed);
    }

    void setText(const QString& text, const QStringList& shorter) {
        if (text == text_ && shorter == shorter_)
            return;
        text_ = text;
        shorter_ = shorter;
        setAccessibleName(text);
        showWhole();
        if (!stretches_)
            updateGeometry();
        update();
    }

    void setElision(Qt::TextElideMode mode) {
        elision_ = mode;
        showWhole();
        update();
    }

    void setTip(const QString& tip) {
        tip_ = tip;
        showWhole();
    }

    QSize sizeHint() const override {
        const int width =
            stretches_ ? minimum_ : std::max(minimum_, fontMetrics().horizontalAdvance(onOneLine(text_)) + 1);
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
    /// Blanks that must not break keep their width.
    static QString onOneLine(QString line) {
        line.replace(u"\r\n"_s, u" "_s);
        for (const QChar end : {u'\r', u'\n', u'\t'})
            line.replace(end, u' ');
        return line;
    }
    /// The first that fits; where none does, the last one is cut behind a word of it.
    QString shown() const {
        const QFontMetrics metrics = fontMetrics();
        const QString whole = onOneLine(text_);
        const auto fits = [&](const QString& text) {
            return metrics.elidedText(text, Qt::ElideRight, width()) == text;
        };
        if (shorter_.isEmpty() || fits(whole))
            return metrics.elidedText(whole, elision_, width());
        for (const QString& text : shorter_) {
            if (fits(onOneLine(text)))
                return onOneLine(text);
        }
        const QString last = onOneLine(shorter_.constLast());
        const QString cut = metrics.elidedText(last, Qt::ElideRight, width());
        const qsizetype blank = cut.lastIndexOf(u' ');
        return blank > 0 && last.at(cut.size() - 1) != u' ' ? cut.left(blank) + u'\u2026' : cut;
    }
    void showWhole() { setToolTip(plainTip(shown() == text_ ? tip_ : text_)); }

    bool stretches_;
    int minimum_;
    Qt::TextElideMode elision_ = Qt::ElideRight;
    QString text_;
    QStringList shorter_;
    QString tip_;
};

/// A panel: its line, and a thin rule on its left side.
class Panel final : public QWidget {
public:
    Panel(const QString& key, int stretch, int minimum, QWidget* parent)
        : QWidget(parent), line(new Line(stretch > 0, pixelsFromTwips(minimum), this)) {
        setObjectName(key);
        auto* layout = new QHBoxLayout(this);
        layout->setContentsMargins(padding, 0, padding, 0);
        layout->addWidget(line, 1);
    }

    void refresh() {
        const QString& said = passing.isEmpty() ? text : passing;
        line->setText(said, passing.isEmpty() ? shorter : QStringList());
        setHidden(silent && said.isEmpty());
    }

    Line* line;
    QString text;
    QStringList shorter; ///< what may stand in its place
    QString passing;
    bool silent = false; ///< not there without a text

protected:
    void paintEvent(QPaintEvent*) override {
        if (x() > padding) // something stands before it
            QPainter(this).fillRect(0, 3, 1, height() - 6, quietLine(palette()));
    }
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
    auto* panel = new Panel(key, stretch, minimum, this);
    d_->panels.insert(key, panel);
    panel->installEventFilter(this);
    addWidget(panel, std::max(0, stretch));
}

void StatusBar::hideWhenEmpty(const QString& key) {
    if (Panel* panel = d_->panel(key)) {
        panel->silent = true;
        panel->refresh();
    }
}

void StatusBar::setElision(const QString& key, Qt::TextElideMode mode) {
    if (const Panel* panel = d_->panel(key))
        panel->line->setElision(mode);
}

void StatusBar::setPanelTip(const QString& key, const QString& tip) {
    if (const Panel* panel = d_->panel(key))
        panel->line->setTip(tip);
}

void StatusBar::setPanelText(const QString& key, const QString& text, const QStringList& shorter) {
    if (Panel* panel = d_->panel(key)) {
        panel->text = text;
        panel->shorter = shorter;
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

QRect StatusBar::panelPlace(const QString& key) const {
    const Panel* panel = d_->panel(key);
    return panel ? QRect(panel->mapTo(window(), QPoint()), panel->size()) : QRect();
}

bool StatusBar::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::MouseButtonPress && static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton)
        emit panelPressed(watched->objectName());
    return QStatusBar::eventFilter(watched, event);
}

} // namespace velm
