#pragma once
// The windows that lead to documents without a search by words: the index, the chronological list, the search by number
// and that by keyword. Each is made when its command is given, is there once, and keeps its place from one run to the
// next; while it is open its button is down.
#include "core/corpus.h"
#include "core/ordre.h"
#include "core/reglages.h"
#include "core/texte.h"
#include "shell/mondeexterieur.h"

#include <QObject>
#include <QPointer>
#include <QWidget>

#include <array>

namespace velm {

class Actions;
class Bureau;
class ChildArea;
class Selection;
struct ContexteListe;
struct ContexteTypes;

class FenetresListes final : public QObject {
    Q_OBJECT

public:
    /// None is owned; all of it outlives this.
    struct Donnees {
        ChildArea& aire;
        Actions& actions;
        Bureau& bureau;
        Selection& selection;
        Reglages& reglages;
        Corpus& corpus;
        const MondeExterieur& monde;
        Libelles texte;
    };
    explicit FenetresListes(const Donnees& donnees);

    /// Its command: opens the window of a list, brings it forward, or closes the one that is in front. The index has a
    /// slot, as the windows of the collections, and is shown and hidden as they are.
    void bascule(Ordre ordre);
    /// Brings the window forward where it is open.
    void amene(Ordre ordre);
    /// Null where it is not open.
    QWidget* fenetre(Ordre ordre) const;

private:
    static constexpr int nombredelistes = 4;
    static int rang(Ordre ordre);
    QWidget* fait(Ordre ordre);
    void ouvre(Ordre ordre);
    int lu(const ReglageLibre& reglage) const;
    void ferme(Ordre ordre);
    void ditouverte(Ordre ordre, bool ouverte);
    void noteplace(Ordre ordre, const QWidget& fenetre);
    ContexteListe contexteliste(Ordre ordre);
    ContexteListe contextemotcle();
    ContexteTypes contexte(Ordre ordre);

    Donnees donnees_;
    std::array<QPointer<QWidget>, nombredelistes> fenetres_;
};

} // namespace velm
