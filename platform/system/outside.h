#pragma once
// Small doors to the outside world, each with a scripted double in the tests.
#include <QByteArray>
#include <QString>

namespace velm {

/// Hands things to the program that the user has for them.
class Navigateur {
public:
    enum class Handed {
        Yes,
        Refused, ///< it is nothing that a document may start
        No       ///< the desktop has no program for it
    };

    virtual ~Navigateur() = default;
    /// An address of the web, with its scheme (see webUrl()); anything else is refused.
    virtual Handed openUrl(const QString& address) = 0;
    /// A new message to that address alone (see mailUrl()).
    virtual Handed mail(const QString& address) = 0;
    /// A local file or folder of the program's own, its help: never what stands in a document. True when handed on.
    virtual bool openFile(const QString& path) = 0;
};

struct ContenuPressePapiers {
    /// A form that is empty is not there for whoever pastes.
    QString texte;
    QString html;
    QByteArray rtf;
};

class PressePapiers {
public:
    virtual ~PressePapiers() = default;
    virtual void pose(const ContenuPressePapiers& contenu) = 0;
    virtual QString texte() const = 0;
};

} // namespace velm
