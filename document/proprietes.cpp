#include "document/proprietes.h"

#include "core/cle.h"
#include "platform/text/number.h"

namespace velm {

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

void montrearborescence(Arborescence& arborescence, TreeNodes& arbre, const Proprietes& proprietes) {
    const Cle cle = decoupecle(proprietes.reference);
    arborescence.chargearbrebase(arbre, cle.code);
    const qint64 noeud = roundHalfEven(val(proprietes.numeroarborescence));
    if (noeud != 0)
        arborescence.cherchebranche(arbre, noeud);
    arborescence.choisitdocument(arbre, cle);
}

} // namespace velm
