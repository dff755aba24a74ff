#pragma once
// frmrechnum: the documents that bear the number of an article, as people cite it, or that of a text. One number at a
// time: what is typed into one box empties the other.
#include "search/listenumero.h"
#include "shell/fenetretypes.h"

class QLineEdit;

namespace velm {

class FenetreNumero final : public FenetreTypes {
    Q_OBJECT

public:
    explicit FenetreNumero(const ContexteTypes& contexte, QWidget* parent = nullptr);

    QLineEdit& noart() const { return *noart_; }
    QLineEdit& notexte() const { return *notexte_; }

    /// Looks anew for what was looked for last, whatever stands in the boxes by now.
    void reselect() override;

protected:
    void rempli() override;
    QString compte() const override;
    void focusInEvent(QFocusEvent* evenement) override;
    bool eventFilter(QObject* objet, QEvent* evenement) override;

private:
    void construitnumeros();
    void connectenumeros();
    void retourarticle();
    void retourtexte();
    void cherche(DemandeNumero::Champ champ, const QString& texte);

    QLineEdit* noart_;
    QLineEdit* notexte_;
    DemandeNumero demande_; ///< without a text before the first search
    bool nouvelle_ = true;  ///< another number is looked for than the rows are of
};

} // namespace velm
