#include "dossiers/echangedossiers.h"

#include "dossiers/libellecompte.h"

namespace velm {

FichierDossier EchangeDossiers::fichier() const {
    const TreeNodes& noeuds = gestion_.donnees().noeuds;
    const ListItems& elements = gestion_.donnees().elements;
    FichierDossier fichier;
    fichier.nom = sanscompteur(noeuds.text(noeuds.selected()));
    for (int index = 1; index <= elements.count(); ++index)
        fichier.elements.emplace_back(elements.key(index), elements.text(index));
    return fichier;
}

bool EchangeDossiers::importe(const FichierDossier& fichier) {
    const GestionDossiers::Donnees& donnees = gestion_.donnees();
    const Attente attente(donnees.sablier);
    ArbreDossiers& arbre = gestion_.arbre();
    const int noeud = arbre.ajoute(donnees.noeuds.childAt(0, 0), fichier.nom);
    const EchecEcriture echec = donnees.magasin.ecrit([&] {
        return arbre.ecritneuf(noeud) && gestion_.contenu().importe(fichier.elements, arbre.numero(noeud)).ok();
    });
    if (!gestion_.reussi(echec, Texte::DossiersPasModifies)) {
        donnees.noeuds.remove(noeud);
        return false;
    }
    gestion_.contenu().montre(fichier.elements);
    // Of a file that ends too early the number of items is not counted.
    if (!fichier.interrompu)
        arbre.modifierelements(noeud, qint64(fichier.elements.size()));
    gestion_.permet();
    return true;
}

std::optional<BilanReparation> EchangeDossiers::repare(bool developpe, const Reparation::Progres& progres) {
    const GestionDossiers::Donnees& donnees = gestion_.donnees();
    if (!gestion_.avis().veutreparer() || !gestion_.enregistre())
        return std::nullopt;
    donnees.elements.clear();
    BilanReparation bilan;
    {
        const Attente attente(donnees.sablier);
        bilan = Reparation::repare(donnees.magasin, progres);
    }
    const bool faite = gestion_.reussi(bilan.echec, Texte::DossiersPasRepares) && !bilan.arretee;
    gestion_.recharge(developpe);
    return faite ? std::optional(bilan) : std::nullopt;
}

} // namespace velm
