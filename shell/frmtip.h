#pragma once
// The tip of the day.
#include "core/texte.h"

#include <QDialog>

#include <functional>

class QCheckBox;
class QLabel;

namespace velm {

class Astuces;

class frmTip final : public QDialog {
    Q_OBJECT

public:
    struct Demarrage {
        bool coche = true;                ///< whether the tip is shown at each start
        std::function<void(bool)> change; ///< told at each click on the box
    };

    /// Loads the tips of the file at once and shows one of them; without the file it says so. The tips must live as
    /// long as the window.
    frmTip(const Libelles& texte, Astuces& astuces, const QString& fichier, Demarrage demarrage,
           QWidget* parent = nullptr);

private:
    void construit(const Libelles& texte, bool coche);
    void montreastuce();

    Astuces& astuces_;
    std::function<void(bool)> change_;
    QLabel* texte_ = nullptr;
};

} // namespace velm
