#pragma once
// One running program for each user: the first holds a lock, a later one asks it to come to the front.
#include <QString>

#include <functional>
#include <memory>

class QSocketNotifier;

namespace velm {

/// The lock is the kernel's: it ends with the process however that ends, so that there are no stale ones. The request
/// to come to the front carries nothing but itself: what the second program was started with is dropped.
class SingleInstance {
public:
    /// Tries for the lock of that name in that folder (which is made if need be). When the folder cannot be used, the
    /// lock is on the user's home folder itself: a later program still finds the first, but cannot ask it to come to
    /// the front. Without a home folder either, every program counts as the first.
    explicit SingleInstance(const QString& name, const QString& folder);
    ~SingleInstance();
    SingleInstance(const SingleInstance&) = delete;
    SingleInstance& operator=(const SingleInstance&) = delete;
    SingleInstance(SingleInstance&&) = delete;
    SingleInstance& operator=(SingleInstance&&) = delete;

    /// A folder of this user alone, the same however the program is started: $XDG_RUNTIME_DIR or the one that the
    /// system makes for a user who is at work, else a private one of that name in the user's own cache.
    static QString defaultFolder(const QString& name);

    /// True in the process that holds the lock, until this object ends.
    bool first() const { return first_; }

    /// In a later program: asks the first one. False when there is none that hears it.
    bool raiseFirst() const;

    /// In the first program: called from the event loop for requests, also those that came before this call. Requests
    /// that are waiting together make one call. Needs an application object.
    void setOnRaise(std::function<void()> onRaise);

private:
    void readRequests();

    QString requestPath_;
    int lock_ = -1;
    int requests_ = -1;
    bool first_ = true;
    std::function<void()> onRaise_;
    std::unique_ptr<QSocketNotifier> notifier_;
};

} // namespace velm
