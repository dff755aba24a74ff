#pragma once
// A status bar of panels that are found by their text keys. Texts that do not fit are elided; the whole is the tool
// tip.
#include <QStatusBar>

#include <memory>

namespace velm {

class StatusBar : public QStatusBar {
    Q_OBJECT

public:
    explicit StatusBar(QWidget* parent = nullptr);
    ~StatusBar() override;

    /// Adds a panel on the right of the others. Stretch 0: as wide as its text, at least `minimum` twips.
    void addPanel(const QString& key, int stretch, int minimum = 0);
    /// The panel is there only while it has something to say.
    void hideWhenEmpty(const QString& key);
    /// Where the text is cut when it does not fit; at its end, unless told otherwise.
    void setElision(const QString& key, Qt::TextElideMode mode);
    /// What the text is, told where nothing of it is cut.
    void setPanelTip(const QString& key, const QString& tip);
    /// `shorter`: what says less of it, the longest first. The first that fits is shown; no word of it is cut.
    void setPanelText(const QString& key, const QString& text, const QStringList& shorter = {});
    QString panelText(const QString& key) const;
    /// A text that stands in a panel in place of its own until it is emptied: the target of a link.
    void setPassing(const QString& key, const QString& text);
    /// Where a panel lies in the window.
    QRect panelPlace(const QString& key) const;

signals:
    /// The left button was pressed on a panel.
    void panelPressed(const QString& key);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Private;
    std::unique_ptr<Private> d_;
};

} // namespace velm
