#pragma once
// The real program with its real boxes, on a copy of the sample collection in a folder of its own, or on another
// collection. All but the constructor belongs into the program's thread.
#include "platform/system/drives.h"
#include "platform/system/process.h"
#include "platform/system/ui/qtdialogues.h"
#include "platform/system/ui/qtimprimante.h"
#include "platform/system/ui/qtoutside.h"
#include "platform/system/ui/qtsablier.h"
#include "shell/programme.h"

#include <QTemporaryDir>

#include <memory>

class QMessageBox;

namespace velm::e2e {

/// The real collection, compiled once for all tests; empty where it is not at hand.
QString realCollection();

class Host {
public:
    /// `base` is the collection's; the sample's without it.
    explicit Host(const QString& base = {});
    ~Host();

    /// What was copied could be copied.
    bool isReady() const { return ready_; }
    QString folder() const { return folder_.path(); }
    void setSetting(QStringView section, QStringView key, const QString& value) const;

    Demarrage start();
    /// The executable itself beside its collection; its path, empty when it cannot stand there.
    QString copyExecutable() const;
    /// The frame has closed and nothing of the program is at work any more.
    bool hasEnded() const;
    /// Forgets a program that has ended.
    void clear() { program_.reset(); }

    Programme& program() { return *program_; }
    /// A bar of the frame by its name.
    QWidget* bar(const QString& name) const;
    Ecrangeneral* frame() const { return program_ ? program_->ecran() : nullptr; }
    /// The document window in front, null for none.
    Textes* front() const;
    /// The box that asks something, null for none.
    static QMessageBox* box();

private:
    QTemporaryDir folder_;
    bool ready_ = false;
    QtDialogues dialogues_;
    QtNavigateur navigateur_;
    SystemProcessus processus_;
    QtSablier sablier_;
    QtPressePapiers pressepapiers_;
    SystemCourrier courrier_;
    QtImprimante imprimante_;
    SystemLecteurs lecteurs_;
    std::unique_ptr<Programme> program_;
};

} // namespace velm::e2e
