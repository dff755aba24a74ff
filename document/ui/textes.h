#pragma once
// The window of a collection's documents: a panel with the contents, the list of the collection or the word search; the
// text; the lists of what the document cites and what cites it.
#include "core/fenetrefille.h"
#include "document/affichage.h"
#include "document/arborescence.h"
#include "document/dispositiontextes.h"
#include "document/marques.h"
#include "document/navigation.h"
#include "document/reglagestextes.h"
#include "platform/system/outside.h"

#include <QWidget>

#include <array>
#include <functional>
#include <memory>

class QAction;
class QLineEdit;
class QMenu;

namespace velm {

class BlocListe;
class BlocRecherche;
class FlexGrid;
class ListeDeLiens;
class RichTextBox;
class SplitterBar;
class Toolbar;
class TreeView;

/// What document windows need of their surroundings; all of it outlives them.
struct ContexteTextes {
    Corpus& corpus;
    Reglages& reglages;
    Navigation& navigation;
    const TableStyles& styles;
    const Parametres& parametres; ///< the pictures of the tree
    Sablier& sablier;
    Navigateur& navigateur;
    PressePapiers& pressepapiers;
    std::array<bool, nombredefenetres>& rafraichir; ///< by slot: show again at the next focus
    std::function<QString(int numero)> texte;       ///< of the language file
    std::function<QString(int indice)> libelle;     ///< of a slot: caption before there is a document
    // The following may be missing: then the answer is false, or 0, or nothing happens.
    std::function<bool()> listeselectionvisible = {};
    std::function<bool()> dossiersouverts = {};
    std::function<int()> formesouvertes = {};                      ///< the frame and the asking window count
    std::function<void(bool visible)> montremosaique = {};         ///< the frame's buttons of the three arrangements
    std::function<PlaceTextes(const QWidget& fenetre)> place = {}; ///< where the frame has put a window
    std::function<Marquage()> marquage = {};                       ///< how found words are marked, now
    std::function<void(const QString& texte)> dit = {};            ///< says something in a box
    /// Looks words up in the collection of a window and puts the documents into the selection list; each result line is
    /// told at once.
    std::function<void(const QString& code, const QString& mots, const std::function<void(const QString&)>& ligne)>
        cherchemots = {};
    /// Offers words while they are typed into a box.
    std::function<void(QLineEdit& mots)> completemots = {};
    BornesPasses bornes = {};
};

class Textes final : public QWidget, public FormulaireDocument, public FenetreNavigable, public FenetreFille {
    Q_OBJECT

public:
    /// A window for a slot from 0 to 10, with the slot's stored settings; the caption is the slot's label until a
    /// document is shown.
    Textes(int indice, const ContexteTextes& contexte, QWidget* parent = nullptr);
    ~Textes() override;

    int indice() const { return indice_; }
    QString code() const { return code_; }
    /// Where the settings want it, for the frame to place it before it is shown.
    PlaceTextes placevoulue() const;
    /// Key and title of the document shown; empty for none.
    Cle cle() const { return parcours_.cle(); }
    QString referencecourante() const { return parcours_.referencecourante; }
    QString titrecourant() const { return parcours_.titrecourant; }

    // ---- controls
    RichTextBox& vue() const { return *vue_; } ///< rtfRichTextBox1
    Toolbar& barrechild() const { return *barre_; }
    TreeView& arbre() const { return *arbre_; }
    FlexGrid& flex() const;
    ListeDeLiens& liens() const { return *liens_; }
    ListeDeLiens& correlats() const { return *correlats_; }
    const DispositionTextes& disposition() const { return disposition_; }
    QString ar() const { return ar_; }

    // ---- what the frame asks and tells
    Nature nature() const override { return Nature::Document; }
    QString reference() const override { return referencecourante(); }
    bool peut(Ordre ordre) const override;
    void fait(Ordre ordre) override;
    /// The window became the active one of the frame: folds the panel if a link asks for it, shows the document again
    /// if the options ask for it, puts the focus.
    void activation() override;
    /// Writes the settings and releases the slot, once, as its closing does: for the end of the run, where a window
    /// that goes changes the state of the next one.
    void decharge() override;

    /// The document was opened from the selection list: the words to walk through come with it, and are marked if the
    /// settings want it; the view, not the caret, goes to the first mark.
    void recoitmots(const QString& mot1, const QString& mot2);
    const MotsCherches& mots() const { return mots_; }

    /// Writes the window's settings, as its closing does.
    void ecritreglages() override;

    // ---- commands that menus and the frame share
    /// The selection, or the whole rich text when nothing is selected, on the clipboard.
    void copie();
    void toutselectionner();
    /// A document has been shown: the entries that need one are enabled.
    bool menusactifs() const { return menusactifs_; }

    // ---- what the opening of a document asks of its window
    RichTextControl& rtfRichTextBox1() override;
    ListesLiens* listes() override { return &listes_; }
    DocumentAffiche& document() override { return document_; }
    void changetitre(const QString& titre) override;
    void activemenus() override;
    void rafraichit() override;
    ListeLaterale& listedesliens() override;
    ListeLaterale& listedescorrelats() override;

    // ---- what the navigation asks of it
    Parcours& parcours() override { return parcours_; }
    void prendfocus() override;
    void affiche(const Cle& cle, const QString& ancre) override;
    bool entiere() const override { return entiere_; }
    QString titre() override { return document_.titre; }
    void montreboutons(bool dossiersouverts) override;
    void activehistorique(bool precedent, bool suivant) override;
    void activevoisin(bool haut, bool actif) override;

signals:
    // What other rooms do for this window.
    /// The document, or the selected part of it, for the dossiers; all empty: the dossiers are to open alone.
    void ranger(const QString& cle, const QString& titre, qsizetype debut, qsizetype longueur);
    void selection(const QStringList& cles); ///< to become the selection list, in this order
    void premierplan();                      ///< wants to be the active window of the frame
    void cible(const QString& texte);        ///< what the link under the pointer leads to; empty for none
    void menuschanges();                     ///< menusactifs() has changed
    void ferme();                            ///< the settings are written, the slot is released

protected:
    void closeEvent(QCloseEvent* evenement) override;
    void resizeEvent(QResizeEvent* evenement) override;
    void changeEvent(QEvent* evenement) override;
    void keyPressEvent(QKeyEvent* evenement) override;
    void focusInEvent(QFocusEvent* evenement) override;
    bool eventFilter(QObject* objet, QEvent* evenement) override;

private:
    QString texte(int numero) const { return contexte_.texte(numero); }
    bool demande(const std::function<bool()>& question) const { return question && question(); }

    // ---- controls
    void construit();
    void construitbarre();
    void montreinfobulles();
    void construitpanneau();
    void construitlistes();
    void construitmenus();
    void connecte();

    // ---- tool bar
    void clicbarre(const QString& cle);
    void clicmenu(const QString& cle, int rang);
    void changeabc();
    void infobulleabc();
    void montredossiers(bool ouverts);
    void montremots(bool visibles);
    qsizetype marque(); ///< where the first mark is, -1 for none
    void changemarqueauto();
    void vamot(bool suivant);
    void cherchemots(const QString& mots);
    void range();
    void montreproprietes();

    // ---- blocks
    void changebloc(const QString& ar); ///< by the user
    void traitear();
    void remplit(const std::function<void()>& travail);
    void chargerarbre();
    void ditsansmemoire() const;
    void clicnoeud(int noeud);

    // ---- division
    void place();
    void applique();
    void montrebloc();
    void lache(const SplitterBar& barre, int position);
    void changearrangement(const QString& vh); ///< by the user
    bool focusici() const;

    // ---- links
    void basculeliste(ListeDeLiens& liste);
    void relieliens();
    void suit(qsizetype position);
    void ditsirefuse(Navigateur::Handed issue, const QString& adresse) const;
    void survole(int lien);
    QString ciblede(int lien) const;

    void menutexte(const QPoint& ou);
    void montremenuliste(QMenu& menu, const ListeDeLiens& liste, const QPoint& ou);
    void montredocument(const Cle& cle, bool abc, const QString& ancre);
    void affichedocumentcourant(bool abc);
    void rafraichitsibesoin();
    void prepare();
    void charge();

    int indice_;
    QString code_;
    ContexteTextes contexte_;
    ReglagesTextes reglages_;
    DispositionTextes disposition_;
    Arborescence arborescence_;
    QString ar_;
    Parcours parcours_;
    ListesLiens listes_;
    DocumentAffiche document_;
    MotsCherches mots_;

    Toolbar* barre_ = nullptr;
    RichTextBox* vue_ = nullptr;
    TreeView* arbre_ = nullptr;
    BlocListe* liste_ = nullptr;
    BlocRecherche* blocrecherche_ = nullptr;
    SplitterBar* separateur_ = nullptr;
    SplitterBar* separateurlisteh_ = nullptr;
    SplitterBar* separateurlistev_ = nullptr;
    ListeDeLiens* liens_ = nullptr;
    ListeDeLiens* correlats_ = nullptr;
    QMenu* menutexte_ = nullptr;
    QMenu* menuliens_ = nullptr;
    QMenu* menucorrelats_ = nullptr;

    bool arbrecharge_ = false;
    bool menusactifs_ = false;
    bool entiere_ = true;
    bool partage_ = true; ///< the lower lists share the width until the user moves their bar
    bool decharge_ = false;
};

} // namespace velm
