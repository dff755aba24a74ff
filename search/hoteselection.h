#pragma once
// What the search form asks of the place where its results are shown.
#include "search/poste.h"
#include "search/recherche.h"

namespace velm {

class HoteSelection {
public:
    virtual ~HoteSelection() = default;

    /// What the searches work with; it and the list in it live as long as the program's frame.
    virtual Atelier& atelier() = 0;
    /// Where all that fills the list is done.
    virtual Poste& poste() = 0;
    /// Rows are about to change: the grid is hidden and paints nothing until it has been told as often that they are
    /// done.
    virtual void commence() = 0;
    virtual void acheve() = 0;
    /// The end of a search: the buttons of the list follow it.
    virtual void publie(const PublicationFin& fin) = 0;
    /// The search form has been shown or hidden: its button follows.
    virtual void formulairevisible(bool visible) = 0;
    /// Shows the panel with the list, without the search form.
    virtual void montreliste() = 0;
};

/// A stretch of work on the rows.
class Remplissage {
public:
    explicit Remplissage(HoteSelection& hote) : hote_(hote) { hote_.commence(); }
    ~Remplissage() { hote_.acheve(); }
    Remplissage(const Remplissage&) = delete;
    Remplissage& operator=(const Remplissage&) = delete;

private:
    HoteSelection& hote_;
};

} // namespace velm
