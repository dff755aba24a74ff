#pragma once
// Mail: a new message in the user's mail program, which may have a file attached. The user finishes and sends it there.
#include "platform/system/files.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <functional>
#include <memory>

namespace velm {

struct Courriel {
    QString subject;
    QString body;
    /// Name under which the attachment goes, and what it holds; empty for a message without one.
    QString fileName;
    QByteArray file;
};

/// Whether a subject and a body are short enough for the desktop's mail command, which makes one address of them.
bool fitsMessage(const QString& subject, const QString& body);

class Courrier {
public:
    enum class Failure {
        NoMailProgram, ///< none is there, or it could not be opened
        NotWritten     ///< the file to be attached
    };
    /// The error is that of the file, or the system's own words about the program, where it has any.
    using Failed = std::function<void(Failure failure, const FileError& error)>;

    virtual ~Courrier() = default;
    /// Opens the message and comes back at once. `failed` is called at most once, before the return or from the event
    /// loop, and never when this object is gone. Nothing is left of the attachment on the disk in the end.
    virtual void compose(const Courriel& courriel, Failed failed) = 0;
};

/// Through the desktop's own command, xdg-email. Mail programs read an attachment when the message is sent, of which
/// nobody is told: files stay in a private folder until this object goes, those of failed messages until they fail.
class SystemCourrier final : public Courrier {
public:
    /// Another command can stand in; its name is looked for in PATH.
    explicit SystemCourrier(QString command = QStringLiteral("xdg-email"));
    ~SystemCourrier() override;
    SystemCourrier(const SystemCourrier&) = delete;
    SystemCourrier& operator=(const SystemCourrier&) = delete;

    void compose(const Courriel& courriel, Failed failed) override;

    /// What the command is called with; `path` is that of the attachment, if there is one.
    static QStringList arguments(const Courriel& courriel, const QString& path);

private:
    struct Private;
    std::unique_ptr<Private> d_;
};

} // namespace velm
