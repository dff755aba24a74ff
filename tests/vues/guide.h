#pragma once
// Leads through the program: does what a user does, and has whatever comes up looked at.
#include "core/ordre.h"
#include "platform/widgets/look/look.h"
#include "tests/e2e/host.h"

#include <QStringList>
#include <QTimer>
#include <QWidget>

#include <functional>
#include <memory>

namespace velm {
class FlexGrid;
class Textes;
class Toolbar;
} // namespace velm

namespace velm::vues {

/// How the program is to be met.
struct Manner {
    QString base = {}; ///< the collection; empty for the sample
    QString language = QStringLiteral("FR");
    look::Theme theme = look::Theme::Light;
};

/// What stands on the screen now, and which window of it is meant: a dialog, a menu, or the frame with all in it.
struct Sight {
    QString name;
    QWidget& window;
};
using Eye = std::function<void(const Sight& sight)>;

/// Waits until the screen, or what is shown of the program without one, has stood still for a moment.
void settle(QWidget& window);

class Guide {
public:
    Guide(Manner manner, Eye eye);
    ~Guide();
    Guide(const Guide&) = delete;
    Guide& operator=(const Guide&) = delete;
    Guide(Guide&&) = delete;
    Guide& operator=(Guide&&) = delete;

    const Manner& manner() const { return manner_; }
    /// What could not be reached; empty when all was seen.
    const QStringList& missed() const { return missed_; }
    void miss(const QString& what);

    /// A copy of a collection beside the program's files; false when it could not be made.
    bool prepare(const QString& base);
    /// Starts the program on it, as at the first time.
    bool start();
    /// Ends it without a question.
    void forget();
    e2e::Host& host() const { return *host_; }

    // ---- what is there; null for what is not
    Textes* front() const { return host_->front(); }
    QWidget* form() const;
    Toolbar* frameBar(const QString& name) const;

    // ---- what is done
    /// Has the frame looked at, or another window.
    void look(const QString& name, QWidget* window = nullptr);
    /// Does something that brings up a menu or a box, has it looked at and closes it.
    void lookAtWhatComes(const QString& name, const std::function<void()>& deed);
    void command(Ordre order, int rank = 0) const;
    void open(const QString& key);
    void press(const Toolbar& bar, const QString& key);
    void pressInWindow(const QString& key);
    /// Replaces what stands in a field.
    void type(const QWidget* within, const QString& field, const QString& words);
    /// Types the beginning of a word, and has what is offered looked at.
    void lookAtOffer(const QString& name, const QWidget* within, const QString& field, const QString& beginning);
    void rightClick(const QString& name, QWidget* widget, std::optional<QPoint> place = {});
    /// On the row that is chosen: below the last one there is no menu.
    void rightClickRow(const QString& name, const FlexGrid& grid);
    void tipOf(const QString& name, QWidget* widget);
    void tab(int number);

private:
    void closeUnexpected();

    Manner manner_;
    Eye eye_;
    std::unique_ptr<e2e::Host> host_;
    QStringList missed_;
    bool expecting_ = false; ///< a box that comes now is wanted
    QTimer unexpected_;      ///< closes any other
};

/// The menu or box that stands before all others; null for none.
QWidget* foremost();
/// Closes a box as Escape does.
void dismiss(QWidget& window);
/// Closes what a field offers, if anything.
void dismissOffer();
/// Presses the Return key where the focus is.
void pressReturn();

inline QWidget* visibleOne(QWidget* widget) {
    return widget && widget->isVisible() ? widget : nullptr;
}
inline constexpr int moment = 15'000; ///< milliseconds, for what comes at once on a machine that is not busy

} // namespace velm::vues
