#pragma once
// Drives whose media can be changed.
#include <QList>
#include <QString>

namespace velm {

struct Lecteur {
    enum class Genre { Optique, Amovible };

    /// Where its medium is mounted, without the last separator; empty when it is not ready.
    QString racine;
    Genre genre = Genre::Optique;
    /// A medium is in it and mounted.
    bool pret = false;

    bool operator==(const Lecteur&) const = default;
};

class Lecteurs {
public:
    virtual ~Lecteurs() = default;
    /// All such drives in the system's order: mounted ones in the order of mounting, then optical drives that are not
    /// ready.
    virtual QList<Lecteur> liste() const = 0;
};

/// The drives of this machine, from the mount table and the block devices.
class SystemLecteurs final : public Lecteurs {
public:
    explicit SystemLecteurs(QString mounts = QStringLiteral("/proc/self/mounts"), QString sys = QStringLiteral("/sys"));
    QList<Lecteur> liste() const override;

private:
    bool isRemovable(const QString& device) const;

    QString mounts_;
    QString sys_;
};

} // namespace velm
