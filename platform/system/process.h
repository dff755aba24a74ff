#pragma once
// Starting other programs.
#include <QString>
#include <QStringList>

namespace velm {

class Processus {
public:
    virtual ~Processus() = default;
    /// Starts a program that outlives this one, without waiting; false when it cannot be started. An empty folder is
    /// the current one.
    virtual bool runDetached(const QString& program, const QStringList& arguments,
                             const QString& folder = QString()) = 0;
};

class SystemProcessus final : public Processus {
public:
    bool runDetached(const QString& program, const QStringList& arguments, const QString& folder) override;
};

} // namespace velm
