#include "document/proprietes.h"

#include "core/cle.h"
#include "core/langue.h"
#include "core/tablereglages.h"
#include "platform/text/number.h"

#include <algorithm>

namespace velm {

namespace {

int taille(const Reglages& reglages, const ReglageLibre& reglage) {
    constexpr double borne = 100'000;
    return static_cast<int>(std::clamp(reglages.lit(reglage), 0.0, borne));
}

} // namespace

Proprietes afficheproprietes(const Cle& cle, const QString& titrecourant, const DocumentAffiche& document,
                             const TypesDocument& types) {
    Proprietes p;
    p.reference = cle.texte();
    p.numart = cle.numero;
    p.Titre = titrecourant;
    p.motcle = {document.motcle1, document.motcle2, document.motcle3};
    p.Source = document.Source;
    p.datetext = document.datetext;
    p.datecreation = document.datecreation;
    p.datemodif = document.datemodif;
    p.choixtype = cle.indice();
    if (!document.typedocument.isEmpty())
        p.combotype = chercheliste(types.combotype, document.typedocument);
    p.numeroarborescence = document.numeroarborescence;
    return p;
}

TailleProprietes littailleproprietes(const Reglages& reglages) {
    return {taille(reglages, reglage::proprieteslargeur), taille(reglages, reglage::proprieteshauteur)};
}

void ecrittailleproprietes(Reglages& reglages, const TailleProprietes& taille) {
    ReglagesStore::Batch lot(reglages.magasin());
    reglages.ecrit(reglage::proprieteslargeur, taille.largeur);
    reglages.ecrit(reglage::proprieteshauteur, taille.hauteur);
    if (!lot.commit())
        reglages.signaleechec();
}

void montrearborescence(Arborescence& arborescence, TreeNodes& arbre, const Proprietes& proprietes) {
    const Cle cle = decoupecle(proprietes.reference);
    arborescence.chargearbrebase(arbre, cle.code);
    const qint64 noeud = roundHalfEven(val(proprietes.numeroarborescence));
    if (noeud != 0)
        arborescence.cherchebranche(arbre, noeud);
    arborescence.choisitdocument(arbre, cle);
}

QString placedanslesommaire(const TreeNodes& arbre, const Libelles& texte) {
    const QStringList noms = Arborescence::chemin(arbre, arbre.selected());
    if (noms.size() < 2)
        return {};
    QString place = noms.first();
    for (const QString& nom : noms.sliced(1))
        place = remplace(texte(Texte::CheminDansLeSommaire), {place, nom});
    return place;
}

} // namespace velm
