#pragma once
// The commands at the right of the dossiers: a column of buttons, and whether all opens at the beginning.
#include "core/texte.h"
#include "dossiers/gestiondossiers.h"

#include <QWidget>

class QCheckBox;
class QPushButton;

namespace velm {

class ColonneDossiers final : public QWidget {
    Q_OBJECT

public:
    ColonneDossiers(const Libelles& texte, QWidget* parent);

    void permet(const CommandesDossiers& commandes);
    bool developpe() const;
    void changedeveloppe(bool coche);

signals:
    void ajouter();
    void supprimer();
    void renommer();
    void haut();
    void bas();
    void toutdevelopper();
    void toutreduire();
    void reparer();
    void fermer();

private:
    QPushButton* bouton(const QString& nom, const QString& legende, const QString& image,
                        void (ColonneDossiers::*signal)());

    QPushButton* ajouter_;
    QPushButton* supprimer_;
    QPushButton* renommer_;
    QPushButton* haut_;
    QPushButton* bas_;
    QCheckBox* developpe_;
};

} // namespace velm
