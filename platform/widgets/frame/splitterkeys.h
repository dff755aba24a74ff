#pragma once
// The key that reaches the bars which divide a window. The Tab key passes them by, so that it walks what is read and
// written in; F8 goes from one bar to the next, in reading order, and from the last one back to where it began.
#include <QObject>
#include <QPointer>

#include <vector>

class QWidget;

namespace velm {

class SplitterBar;

class SplitterKeys final : public QObject {
    Q_OBJECT

public:
    /// Gives the key to a top-level window, once; it goes with the window.
    static void serve(QWidget& window);

private:
    explicit SplitterKeys(QWidget& window);
    void next();
    std::vector<SplitterBar*> reachable() const;

    QWidget& window_;
    QPointer<QWidget> began_; ///< what had the focus before the first bar
};

} // namespace velm
