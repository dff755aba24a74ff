#pragma once
// The entries of the windows in their menu: counted from 1, and named as the window that each brings forward.
#include <QObject>

namespace velm {

class Actions;
class Bureau;

class EntreesFenetres final : public QObject {
    Q_OBJECT

public:
    /// Neither is owned; both outlive this.
    EntreesFenetres(Bureau& bureau, Actions& actions);

private:
    void intitule();

    Bureau& bureau_;
    Actions& actions_;
};

/// What stands before the title of an entry that a digit chooses.
QString debutnumerote(int numero);

} // namespace velm
