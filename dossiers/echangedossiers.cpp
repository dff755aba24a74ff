#include "dossiers/echangedossiers.h"

#include "dossiers/libellecompte.h"

namespace velm {

FichierDossier fichierdudossier(const QString& nom, const ListItems& elements) {
    FichierDossier fichier;
    fichier.nom = nom;
    for (int index = 1; index <= elements.count(); ++index)
        fichier.elements.emplace_back(elements.key(index), elements.text(index));
    return fichier;
}

FichierDossier EchangeDossiers::fichier() const {
    const TreeNodes& noeuds = gestion_.donnees().noeuds;
    return fichierdudossier(sanscompteur(noeuds.text(noeuds.selected())), gestion_.donnees().elements);
}

EchecEcriture importedossier(Magasin& magasin, TreeNodes& noeuds, ArbreDossiers& arbre, ContenuDossier& contenu,
                             const FichierDossier& fichier) {
    const int noeud = arbre.ajoute(noeuds.childAt(0, 0), fichier.nom);
    EchecEcriture echec = magasin.ecrit(
        [&] { return arbre.ecritneuf(noeud) && contenu.importe(fichier.elements, arbre.numero(noeud)).ok(); });
    if (!echec.ok()) {
        noeuds.remove(noeud);
        return echec;
    }
    contenu.montre(fichier.elements);
    // Of a file that ends too early the number of items is not counted.
    if (!fichier.interrompu)
        arbre.modifierelements(noeud, qint64(fichier.elements.size()));
    return echec;
}

bool EchangeDossiers::importe(const FichierDossier& fichier) {
    const GestionDossiers::Donnees& donnees = gestion_.donnees();
    const Attente attente(donnees.sablier);
    const EchecEcriture echec =
        importedossier(donnees.magasin, donnees.noeuds, gestion_.arbre(), gestion_.contenu(), fichier);
    if (!gestion_.reussi(echec, Texte::DossiersPasModifies))
        return false;
    gestion_.permet();
    return true;
}

std::optional<BilanReparation> EchangeDossiers::repare(bool developpe, const Reparation::Progres& progres) {
    const GestionDossiers::Donnees& donnees = gestion_.donnees();
    if (!gestion_.avis().veutreparer() || !gestion_.enregistre())
        return std::nullopt;
    donnees.elements.clear();
    TemoinDossiers* const temoin = gestion_.temoin();
    if (temoin != nullptr)
        donnees.magasin.lit([&] { temoin->vareparer(); });
    BilanReparation bilan;
    {
        const Attente attente(donnees.sablier);
        bilan = Reparation::repare(donnees.magasin, progres);
    }
    if (temoin != nullptr)
        temoin->change(bilan.echec.ok() && !bilan.arretee);
    const bool faite = gestion_.reussi(bilan.echec, Texte::DossiersPasRepares) && !bilan.arretee;
    gestion_.recharge(developpe);
    return faite ? std::optional(bilan) : std::nullopt;
}

} // namespace velm
