#pragma once
// The tree of the dossiers, which is a working copy: what is edited changes the nodes and leaves letters in their tags,
// and Sauvearbre() alone brings it into the store. Nodes have the key "X " and the number of the dossier with its sign
// position ("X  12"); the root has the number 0 and no row.
//
// The letters of a tag have no order but for "+", the children are loaded, which stands first. "A": there is no row
// yet. "D": another parent or place. "R": another name. "S": to be deleted. A save does not take them off.
#include "dossiers/magasin.h"
#include "dossiers/noeuddossier.h"
#include "dossiers/temoindossiers.h"
#include "platform/controls/treenodes.h"
#include "platform/system/sablier.h"

namespace velm {

class ArbreDossiers {
public:
    /// None is owned. `racine`: the text of the root.
    ArbreDossiers(Magasin& magasin, TreeNodes& noeuds, Sablier& sablier, QString racine);

    /// Who hears what a save takes with it, and knows the numbers of dossiers that may come back; not owned, may be
    /// null.
    void ecoute(TemoinDossiers* temoin) { temoin_ = temoin; }

    static QString clenoeud(qint64 numero) { return noeuddossier::cle(numero); }
    /// The number in a key.
    static qint64 numerodelacle(const QString& cle) { return noeuddossier::numero(cle); }
    qint64 numero(int noeud) const { return numerodelacle(noeuds_.key(noeud)); }
    bool estracine(int noeud) const { return noeuds_.key(noeud) == clenoeud(0); }
    bool porte(int noeud, QChar lettre) const { return noeuds_.tag(noeud).contains(lettre); }

    /// Takes the next number from the store. To be called once for a window. A store without its row of numbers, or
    /// without a table, is a run-time error.
    void litprochainnumero();
    qint64 prochainnumero() const { return prochainnumero_; }

    /// Builds the tree anew: the root, open, with its children.
    void chargearbre();
    /// Loads the children of a node, one level, unless they are.
    void developperbranche(int noeud);
    /// A node was opened: loads what lies below its children.
    void developpe(int noeud);
    void toutdevelopper();
    void toutreduire();

    /// Whether there is something to save.
    bool modifie() const { return modifie_; }
    void notemodifie() { modifie_ = true; }
    /// Writes the whole tree, in one transaction; after a failure the store and the letters are as before, and it can
    /// be tried again.
    EchecEcriture Sauvearbre();
    /// Counts the items of a dossier.
    qint64 comptearticle(qint64 numero) const;

    /// A new dossier with the next number that nobody has, the last child of a node; its index. It is selected, and its
    /// parent open.
    int ajoute(int parent, const QString& nom);
    /// Writes the row of a new dossier ahead of the next save, within a change of the store: what is stored in it then
    /// has an owner, whatever happens until then. False when it cannot be written.
    bool ecritneuf(int noeud);
    /// Before its name is edited: the bare name, which the node has from now on; its count comes back by
    /// remetcompteur().
    QString commencerenommage(int noeud);
    /// The name and its count, for a node whose name is being edited, or was left as it is.
    void remetcompteur(int noeud);
    /// Marks for deletion, or takes the mark off, a node and all that is loaded below it.
    void marquersuppression(int noeud, bool marquer);
    /// Walks through all that is loaded below a node and finds nothing to object.
    bool testearticle(int noeud) const;
    /// Makes a node the last child of another one. False, with nothing changed, for itself or what lies below it.
    bool deplace(int noeud, int cible);
    /// Before its previous sibling, behind its next one. The node is built anew, with all below it, and its new index
    /// returned; 0 where there is no such sibling. What was marked below it is no longer, nor is it loaded any more.
    int monte(int noeud);
    int descend(int noeud);
    /// Changes the count that a node shows; the root shows none.
    void modifierelements(int noeud, qint64 delta);

private:
    using Beside = TreeNodes::Beside;
    int racine() const { return noeuds_.childAt(0, 0); }
    bool pris(qint64 numero) const;
    QString cleenfant(qint64 numero) const;
    int reconstruit(int noeud, int voisin, Beside cote);
    int decalechildren(int ancien, int nouveau);
    void virerlesmarques(int noeud);
    void marquedeplacement(int noeud);
    void ajoutelettre(int noeud, QChar lettre);

    Magasin& magasin_;
    TreeNodes& noeuds_;
    Sablier& sablier_;
    QString texteracine_;
    TemoinDossiers* temoin_ = nullptr;
    std::vector<qint64> perdus_; ///< dossiers without a row that a move made unable to get one
    qint64 prochainnumero_ = 1;
    qint64 compteuredite_ = 0; ///< taken off the name that is being edited
    bool chargement_ = false;
    bool modifie_ = false;
};

} // namespace velm
