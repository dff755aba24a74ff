#include "document/proprietes.h"

#include "core/cle.h"
#include "platform/text/number.h"

namespace velm {

using namespace Qt::Literals::StringLiterals;

TypesDocument littypesdocument(Corpus& corpus) {
    TypesDocument types;
    Recordset& table = corpus.typedocument();
    table.setIndex(u"iordre"_s);
    for (table.moveFirst(); !table.eof(); table.moveNext()) {
        types.combotype << table.text(u"typedocument"_s);
        types.numerotype << table.text(u"numerodutype"_s);
    }
    return types;
}

int chercheliste(const QStringList& entrees, const QString& texte) {
    for (qsizetype rang = 0; rang < entrees.size(); ++rang) {
        if (entrees.at(rang).startsWith(texte, Qt::CaseInsensitive))
            return static_cast<int>(rang);
    }
    return -1;
}

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
