#pragma once
// What the start page answers to the text of its field: how many documents there are, the first of them, and the ways
// on.
#include "core/cle.h"
#include "core/texte.h"

#include <QWidget>

#include <vector>

class QBoxLayout;
class QPushButton;

namespace velm {

class GroupeDepart;
class NoteLine;

/// A document that was found while its title was typed.
struct DocumentTrouve {
    Cle cle;
    QString titre;
};

class ReponseDepart final : public QWidget {
    Q_OBJECT

public:
    ReponseDepart(const Libelles& texte, QWidget* parent);

    /// False: the focus was on a row that has gone, and there is none left for it.
    bool montre(const std::vector<DocumentTrouve>& trouves, const QString& bilan);
    /// The buttons stand beside each other where they have room.
    void dispose(int largeur);
    /// On the first row, else on the way to another search.
    void prendfocus();

    GroupeDepart& trouves() const { return *trouves_; }

signals:
    void documentvoulu(const velm::Cle& cle);
    void tousvoulus();
    void recherchevoulue();
    void remonte(); ///< the Up key leads out of the rows

private:
    Libelles texte_;
    NoteLine* bilan_ = nullptr;
    GroupeDepart* trouves_ = nullptr;
    QBoxLayout* boutons_ = nullptr;
    QPushButton* tous_ = nullptr;
    QPushButton* detaillee_ = nullptr;
    std::vector<Cle> cles_; ///< of the rows
};

} // namespace velm
