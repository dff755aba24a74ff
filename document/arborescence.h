#pragma once
// The contents tree of a collection: branches and documents, loaded a few levels at a time and always ahead of what is
// open.
#include "core/cle.h"
#include "core/corpus.h"
#include "core/parametres.h"
#include "platform/controls/treenodes.h"
#include "platform/system/sablier.h"

#include <QString>
#include <QStringList>

#include <functional>

namespace velm {

/// Node keys: code + " 0" for the root, code + number as text (" 12") for a branch, "@" + key for a document. A node
/// with the tag "+" has its children. A key that is in the tree already is not added again.
class Arborescence {
public:
    /// The label of the collection of a slot.
    using Libelle = std::function<QString(int indice)>;

    /// `parametres` lends the pictures by depth; nothing is owned.
    Arborescence(Corpus& corpus, const Parametres& parametres, Sablier& sablier, Libelle libelle);

    /// Empties the tree and loads a collection down to the third level.
    void chargearbrebase(TreeNodes& arbre, const QString& code);
    /// Loads the children of a node down to `profondeurmax`.
    void chargebranche(TreeNodes& arbre, int noeud);
    /// The user opens a node: whatever its children lack below them is loaded.
    void developpe(TreeNodes& arbre, int noeud);

    /// Selects the branch of a number, loading and opening what leads to it. Stops at a number that the base does not
    /// know and at branches that hang in a circle.
    void cherchebranche(TreeNodes& arbre, qint64 numero);
    /// Selects the leaf of a document, and opens what leads to it. Nothing happens when it is not in the tree.
    void choisitdocument(TreeNodes& arbre, const Cle& cle);
    /// Opens what leads to the leaf of a document, which hangs from the branch of a number, and gives the leaf; 0 where
    /// the tree has none. What the way needs is loaded, without the hourglass, and nothing is selected.
    int mene(TreeNodes& arbre, const Cle& cle, qint64 numero);
    /// The leaf of a document, if it is loaded; 0 for none.
    static int feuillede(const TreeNodes& arbre, const Cle& cle);

    /// Steps from a node up to the root, which is node 1 and gives 0.
    static int niveaunoeud(const TreeNodes& arbre, int noeud);
    /// The text of a node as it is shown below its ancestors: a document's title leaves out what repeats the text of
    /// one of them ("art. 3" below "Code du travail"), or the word that its neighbours have before their numbers, too
    /// ("3 - Délais" for "Article 3 - Délais"). All others are shown whole.
    static QString libellecourt(const TreeNodes& arbre, int noeud);
    /// Picture of a branch at a depth from 0 to 10; empty beyond.
    QString imagenoeud(int profondeur, bool ouvert) const;
    /// The document of a leaf in the tree of a collection; an empty key for any other node.
    static Cle documentde(const TreeNodes& arbre, int noeud, const QString& code);
    /// The names of the branches from the root down to a node, without the node where it is a document.
    static QStringList chemin(const TreeNodes& arbre, int noeud);

    /// Depth at which the loading stops.
    int profondeurmax() const { return profondeurmax_; }

private:
    void charge(TreeNodes& arbre, int noeud, bool feuillesvues);
    void ajoutefeuilles(TreeNodes& arbre, int parent, const QString& code, qint64 numero);
    void devance(TreeNodes& arbre, int noeud);
    void ouvre(TreeNodes& arbre, int noeud);
    void ouvreancetres(TreeNodes& arbre, int noeud);
    bool descend(TreeNodes& arbre, qint64 numero, const std::function<void(int noeud)>& passe);

    static constexpr int avance = 3; ///< levels that are loaded ahead

    Corpus& corpus_;
    const Parametres& parametres_;
    Sablier& sablier_;
    Libelle libelle_;
    int profondeurmax_ = avance;
};

} // namespace velm
