#pragma once
// One of the two lists below the text: what the document cites, or what cites it. A header with the button that opens
// and closes it, and a grid; the window places both.
#include "core/colonnes.h"
#include "core/corpus.h"
#include "core/texte.h"
#include "document/affichage.h"
#include "document/liens.h"
#include "document/ui/grilledocuments.h"

#include <QWidget>

#include <optional>

class QToolButton;

namespace velm {

class FlexGrid;

class ListeDeLiens final : public QObject, public ListeLaterale {
    Q_OBJECT

public:
    static constexpr int fermee = 255; ///< red: the header button's colour while the list is closed

    /// What tells the two apart.
    struct Sorte {
        QString entete;
        QString bouton;
        QString etiquette;
        QString grille;
        Texte textebouton;
        Texte texteetiquette;
        Texte textevide; ///< what an empty list says
        std::vector<LigneLien> (*charge)(Corpus& corpus, const Cle& cle);
        std::optional<int> (*compte)(const Corpus& corpus, const Cle& cle);
    };
    static Sorte liens();
    static Sorte correlats();

    ListeDeLiens(const Sorte& sorte, Corpus& corpus, const Libelles& texte, QWidget* fenetre);

    QWidget* entete() const { return entete_; }
    QToolButton* bouton() const { return bouton_; }
    FlexGrid* grille() const { return grille_; }
    /// Height of the header, pixels.
    int hauteurentete() const;
    /// Of the grid: its own header, and a row, pixels.
    int hauteurtitres() const;
    int hauteurrangee() const;
    /// What the grid wants for its header and its rows, pixels; for some rows at least, as the next document may have
    /// more.
    int hauteurvoulue() const;

    bool eventFilter(QObject* objet, QEvent* evenement) override;
    bool visible() const override { return visible_; }
    /// The lists are shown, and there is a place for them.
    void montre(bool visible, bool placee);
    bool placee() const;
    int couleurbouton() const override { return couleur_; }
    void recharge(const Cle& cle) override { charge(cle); }

    bool ouverte() const { return couleur_ == ListeLaterale::ouverte; }
    void ouvre(const Cle& cle); ///< loads and turns green
    void ferme();               ///< empties and turns red
    /// Tells how many rows it would have for a document; nothing where the base cannot tell.
    void compte(const Cle& cle);
    void oublie(); ///< another document is coming: the number of rows is not known any more
    /// Keys of the documents of the rows, in the order of the grid.
    QStringList cles() const;
    void ouvrelignecourante();

signals:
    void basculee(); ///< the header's button was pressed
    void ligneouverte(const Cle& cle);
    void menudemande(const QPoint& ou);

private:
    void construitentete(const Sorte& sorte, const Libelles& texte);
    void construitgrille(const Sorte& sorte, const Libelles& texte);
    void charge(const Cle& cle);
    void peintetat();
    void montreetiquette();

    Corpus& corpus_;
    Libelles texte_;
    Sorte sorte_;
    std::optional<int> nombre_; ///< of rows, as far as that is known of the document
    QWidget* entete_;
    QToolButton* bouton_;
    QWidget* etiquette_ = nullptr; ///< says what the list is of, where there is room
    FlexGrid* grille_;
    Colonnes colonnes_;
    GrilleDocuments documents_;
    int couleur_ = fermee;
    bool visible_ = false;
};

} // namespace velm
