#pragma once
// The block of the panel that lists the documents of the window's collection. Its columns are the user's to arrange.
#include "core/colonnes.h"
#include "core/corpus.h"
#include "core/texte.h"
#include "document/reglagestextes.h"
#include "document/ui/grilledocuments.h"
#include "platform/system/sablier.h"

#include <QObject>

class QWidget;

namespace velm {

class FlexGrid;
class SuiviListe;

class BlocListe final : public QObject {
    Q_OBJECT

public:
    /// An empty grid in a window, which places it. The corpus and the wait cursor outlive it.
    BlocListe(const QString& code, Corpus& corpus, Sablier& sablier, const Libelles& texte, QWidget* fenetre);

    FlexGrid* grille() const { return grille_; }
    SuiviListe& suivi() const { return *suivi_; } ///< of the document of the window
    bool chargee() const { return chargee_; }
    /// Fills the grid, its columns as they were stored, sorted by the first one. std::bad_alloc where the memory does
    /// not suffice: it then counts as not filled.
    void charge(const ReglagesTextes& reglages);
    /// Puts order and widths where they are stored: of a grid that was never filled the order of none, and the widths
    /// as they are there.
    void retient(ReglagesTextes& reglages);

signals:
    void ouverte(const Cle& cle); ///< the document of a row is wanted
    void sansmemoire();           ///< what was asked for did not fit into the memory

private:
    void trie(int colonne);

    QString code_;
    Corpus& corpus_;
    Sablier& sablier_;
    FlexGrid* grille_;
    Colonnes colonnes_;
    GrilleDocuments documents_;
    SuiviListe* suivi_;
    bool chargee_ = false;
};

} // namespace velm
