#pragma once
// What the program is, its version and its conditions.
#include "core/texte.h"

#include <QDialog>

#include <functional>

class QLabel;
class QTimer;

namespace velm {

class Dialogues;
class Logo;

/// The first three numbers of a version with points between them; numbers that are missing are 0.
QString versioncourte(const QString& version);

class frmAbout final : public QDialog {
    Q_OBJECT

public:
    struct Rappels {
        std::function<bool()> lancesysinfo; ///< starts the system information tool; false without one
        std::function<void()> estmontree;   ///< the window is on the screen
    };

    /// `collection` is the title of the open base; empty for none.
    frmAbout(const Libelles& texte, const QString& version, const QString& collection, Rappels rappels,
             Dialogues& dialogues, QWidget* parent = nullptr);

protected:
    void showEvent(QShowEvent* evenement) override;
    void hideEvent(QHideEvent* evenement) override;

private:
    void construit(const QString& version, const QString& collection);
    QLabel* titredelabase(const QString& collection);
    void basculeanimation();
    void informationssysteme();

    Libelles texte_;
    Rappels rappels_;
    Dialogues& dialogues_;
    Logo* logo_ = nullptr;
    QTimer* minuterie_ = nullptr;
};

} // namespace velm
