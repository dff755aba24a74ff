#include "document/balises.h"

#include "document/passes.h"

namespace velm {

void chargecontenu(FormulaireRiche& formulaire, bool abc, const ContextePasses& contexte) {
    contexte.source.prepare();
    RichTextControl& controle = formulaire.rtfRichTextBox1();
    RichText& texte = controle.richTextForEdit();
    passes::inclusions(texte, contexte.source, contexte.bornes);
    passes::sautsdepage(texte);
    passes::sections(controle, abc, contexte);
    passes::liens(texte, formulaire.listes(), contexte.bornes);
    controle.notifyChanged();
}

} // namespace velm
