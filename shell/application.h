#pragma once
// The toolkit's application object, and what reaches the program through it alone: no memory left for an event, and
// the desktop's wish that the program end.
#include <QApplication>

#include <functional>

namespace velm {

class Application final : public QApplication {
    Q_OBJECT

public:
    Application(int& argc, char** argv);
    ~Application() override;

    /// There was no memory for what an event asked for: to be said to the user. Called from the event loop, not from
    /// where it happened, and once for all that fails until it returns. The run goes on; it ends where not even this
    /// can be done.
    std::function<void()> sansmemoire;

    /// Somebody other than the user wants the program to end (the session does), or the last window has closed.
    std::function<void()> finvoulue;

    bool notify(QObject* objet, QEvent* evenement) override;

protected:
    bool event(QEvent* evenement) override;

private:
    void ditsansmemoire();

    bool sansmemoireadire_ = false;
};

} // namespace velm
