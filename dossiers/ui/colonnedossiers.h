#pragma once
// The commands at the right of the dossiers: a column of buttons.
#include "core/texte.h"
#include "dossiers/gestiondossiers.h"

#include <QWidget>

class QPushButton;

namespace velm {

class ColonneDossiers final : public QWidget {
    Q_OBJECT

public:
    ColonneDossiers(const Libelles& texte, QWidget* parent);

    /// Shows what was lost; enabled by whoever knows of it.
    QPushButton& retrouver() const { return *retrouver_; }
    void permet(const CommandesDossiers& commandes);

signals:
    void ajouter();
    void supprimer();
    void renommer();
    void haut();
    void bas();
    void toutdevelopper();
    void toutreduire();
    void imprimer();
    void reparer();
    void fermer();

private:
    QPushButton* bouton(const QString& nom, const QString& legende, const QString& image,
                        void (ColonneDossiers::*signal)());

    QPushButton* ajouter_;
    QPushButton* renommer_;
    QPushButton* supprimer_;
    QPushButton* haut_;
    QPushButton* bas_;
    QPushButton* imprimer_ = nullptr;
    QPushButton* retrouver_ = nullptr;
};

} // namespace velm
