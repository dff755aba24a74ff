#pragma once
// What the properties dialog shows of a document.
#include "core/reglages.h"
#include "core/texte.h"
#include "core/typesdocument.h"
#include "document/affichage.h"
#include "document/arborescence.h"

#include <QString>
#include <QStringList>

#include <array>

namespace velm {

/// The texts of the dialog's controls.
struct Proprietes {
    QString reference;
    QString numart;
    QString Titre;
    std::array<QString, 3> motcle;
    QString Source;
    QString datetext;
    QString datecreation;
    QString datemodif;
    int choixtype = 0;  ///< collection, as its place in the order of the collections
    int combotype = -1; ///< kind of document, as its row; -1 for none
    QString numeroarborescence;

    friend bool operator==(const Proprietes&, const Proprietes&) = default;
};

/// Of the document that a window shows.
Proprietes afficheproprietes(const Cle& cle, const QString& titrecourant, const DocumentAffiche& document,
                             const TypesDocument& types);

/// What the dialog's size is stored as, twips; 0: the usual one.
struct TailleProprietes {
    int largeur = 0;
    int hauteur = 0;

    friend bool operator==(const TailleProprietes&, const TailleProprietes&) = default;
};

/// Any stored text is read as the number it begins with; one off any scale is bounded.
TailleProprietes littailleproprietes(const Reglages& reglages);
void ecrittailleproprietes(Reglages& reglages, const TailleProprietes& taille);

/// The collection's tree, opened down to the branch and the leaf of the document.
void montrearborescence(Arborescence& arborescence, TreeNodes& arbre, const Proprietes& proprietes);

/// Where the document that is selected in the tree hangs, in one line: the way from the collection down to it. Empty
/// where it hangs from the collection itself, or nowhere.
QString placedanslesommaire(const TreeNodes& arbre, const Libelles& texte);

} // namespace velm
