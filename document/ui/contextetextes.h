#pragma once
// What document windows need of their surroundings.
#include "core/bilan.h"
#include "core/parametres.h"
#include "core/reglages.h"
#include "core/texte.h"
#include "document/lecture.h"
#include "document/reglagestextes.h"

#include <functional>

class QLineEdit;
class QWidget;

namespace velm {

/// What a document window asks of the frame that it stands in.
class Voisinage {
public:
    virtual ~Voisinage() = default;
    virtual bool listeselectionvisible() const = 0;
    virtual bool dossiersouverts() const = 0;
    virtual int formesouvertes() const = 0; ///< the frame and the asking window count
    /// The frame's buttons of the three arrangements come or go.
    virtual void montremosaique(bool visible) = 0;
    /// Where the frame has put a window.
    virtual PlaceTextes place(const QWidget& fenetre) const = 0;
    /// Whether the window of a slot is to show its document once more; asking settles it.
    virtual bool prendrafraichir(int indice) = 0;
    virtual void dit(const QString& texte) = 0; ///< in a box
};

/// Help with the words of a collection.
class AideMots {
public:
    /// Who hears a search; it may have been closed meanwhile.
    struct Ecoute {
        std::function<void(const QString&)> ligne;      ///< each line of the result, at once
        std::function<void(const BilanRecherche&)> fin; ///< what came of it
    };
    virtual ~AideMots() = default;
    /// How found words are marked, now.
    virtual Marquage marquage() const = 0;
    /// Words can be looked up; else the window's search block is off.
    virtual bool cherchable() const = 0;
    /// Looks words up in the collection of a code and puts the documents into the selection list, all of them where
    /// `tous` says so; else the user is asked before they are very many. The search may have to wait for another one,
    /// and the window be closed meanwhile.
    virtual void cherche(const QString& code, const QString& mots, const Ecoute& ecoute, bool tous) = 0;
    /// Offers words while they are typed into a box.
    virtual void complete(QLineEdit& boite) = 0;
};

/// What a document window is given. All of it outlives the windows.
struct ContexteTextes {
    ContexteLecture lecture;
    Reglages& reglages;
    const Parametres& parametres; ///< only for the pictures of the tree
    PressePapiers& pressepapiers;
    Voisinage& voisinage;
    AideMots& mots;

    QString texte(Texte lequel) const { return lecture.texte(lequel); } ///< of the language file
    /// Work that fills something; false, and said, where the memory does not suffice for it.
    bool remplit(const std::function<void()>& travail) const;
    void ditsansmemoire() const;
};

} // namespace velm
