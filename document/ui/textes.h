#pragma once
// The window of a collection's documents: a rich text with its links.
#include "document/affichage.h"
#include "platform/widgets/richtextbox.h"

#include <QWidget>

namespace velm {

class Textes final : public QWidget, public FormulaireDocument {
    Q_OBJECT

public:
    /// A window for the slot of a collection. The caption is `libelle` until a document is shown.
    Textes(int indice, const QString& libelle, QWidget* parent = nullptr);

    int indice() const { return indice_; }
    /// Key of the document shown; empty for none.
    QString referencecourante() const { return referencecourante_; }
    void changereferencecourante(const QString& cle) { referencecourante_ = cle; }
    QString titrecourant() const { return document_.titre; }
    RichTextBox& vue() const { return *vue_; }

    // ---- what the opening of a document asks of its window
    RichTextControl& rtfRichTextBox1() override { return vue_->control(); }
    ListesLiens* listes() override { return &listes_; }
    DocumentAffiche& document() override { return document_; }
    void changetitre(const QString& titre) override { setWindowTitle(titre); }
    void activemenus() override { menusactifs_ = true; }
    void rafraichit() override;
    ListeLaterale& listedesliens() override { return liens_; }
    ListeLaterale& listedescorrelats() override { return correlats_; }

    bool menusactifs() const { return menusactifs_; }
    /// Tells the view where links lie, once a document is shown.
    void relieliens();

signals:
    void liensuivi(const QString& cle, const QString& texte); ///< an internal link was clicked
    void adressesuivie(const QString& adresse);
    void couriersuivi(const QString& adresse);
    void ferme();

protected:
    void closeEvent(QCloseEvent* evenement) override;

private:
    /// No list stands beside the text of this window.
    class SansListe final : public ListeLaterale {
    public:
        bool visible() const override { return false; }
        int couleurbouton() const override { return 0; }
        void recharge(const QString&, const QString&) override {}
    };
    void suit(qsizetype position);

    int indice_;
    RichTextBox* vue_;
    ListesLiens listes_;
    DocumentAffiche document_;
    SansListe liens_;
    SansListe correlats_;
    QString referencecourante_;
    bool menusactifs_ = false;
};

} // namespace velm
