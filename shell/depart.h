#pragma once
// The start page at work: puts it under the windows of the frame, searches what is typed there, and has done what is
// wanted there.
#include "core/corpus.h"
#include "core/texte.h"
#include "search/rechercheimmediate.h"

#include <QObject>
#include <QTimer>

namespace velm {

class Actions;
class Bureau;
class ChildArea;
class Selection;
class VueDepart;

class Depart final : public QObject {
    Q_OBJECT

public:
    /// None is owned; all of it outlives this.
    struct Donnees {
        ChildArea& aire;
        Actions& actions;
        Bureau& bureau;
        Selection& selection;
        Corpus& corpus;
        Libelles texte;
    };
    explicit Depart(const Donnees& donnees);

    VueDepart& vue() const { return *vue_; }
    /// Done once, when the page is seen the next time.
    void alaprochainevue(std::function<void()> fait);
    /// Nothing is looked for any more: the base may be closed.
    void arrete();

private:
    void relie();
    void montre(const Resultat& resultat, bool finie);
    void ouvre(const Cle& cle);
    void mettoutdanslaliste(const QString& texte);

    Donnees donnees_;
    VueDepart* vue_; ///< the area's
    RechercheImmediate recherche_;
    QTimer apreslafrappe_; ///< searches once all keys that wait have been typed
};

} // namespace velm
