#include "document/proprietes.h"

#include "core/cle.h"
#include "platform/text/number.h"

namespace velm {

Proprietes afficheproprietes(const QString& referencecourante, const QString& titrecourant,
                             const DocumentAffiche& document, const TypesDocument& types) {
    const auto [code, numero] = decoupecle(referencecourante);
    Proprietes p;
    p.reference = referencecourante;
    p.numart = numero;
    p.Titre = titrecourant;
    p.motcle = {document.motcle1, document.motcle2, document.motcle3};
    p.Source = document.Source;
    p.datetext = document.datetext;
    p.datecreation = document.datecreation;
    p.datemodif = document.datemodif;
    p.choixtype = indicedetype(code);
    if (!document.typedocument.isEmpty())
        p.combotype = chercheliste(types.combotype, document.typedocument);
    p.numeroarborescence = document.numeroarborescence;
    return p;
}

void montrearborescence(Arborescence& arborescence, TreeNodes& arbre, const Proprietes& proprietes) {
    arborescence.chargearbrebase(arbre, decoupecle(proprietes.reference).code);
    const qint64 noeud = roundHalfEven(val(proprietes.numeroarborescence));
    if (noeud != 0)
        arborescence.cherchebranche(arbre, noeud);
    arborescence.choisitdocument(arbre, proprietes.reference);
}

} // namespace velm
