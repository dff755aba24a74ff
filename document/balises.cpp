#include "document/balises.h"

#include "document/passes.h"

namespace velm {
namespace {

/// Runs the passes one after the other; nothing when none of them changed anything.
std::optional<passes::Plat> resout(FormulaireRiche& formulaire, bool abc, const ContextePasses& contexte) {
    RichTextControl& controle = formulaire.rtfRichTextBox1();
    RichText& hote = controle.richTextForEdit();
    std::optional<passes::Plat> rendu;
    const passes::Plat lu(hote);
    const auto suit = [&rendu](std::optional<passes::Plat> suivant) {
        if (suivant)
            rendu = std::move(suivant);
    };
    const auto texte = [&]() -> const passes::Plat& { return rendu ? *rendu : lu; };
    suit(passes::inclusions(texte(), hote, contexte.source, contexte.bornes));
    suit(passes::sautsdepage(texte(), hote));
    suit(passes::sections(texte(), hote, controle, abc, contexte));
    suit(passes::liens(texte(), hote, formulaire.listes(), contexte.bornes));
    return rendu;
}

} // namespace

void chargecontenu(FormulaireRiche& formulaire, bool abc, const ContextePasses& contexte) {
    contexte.source.prepare();
    RichTextControl& controle = formulaire.rtfRichTextBox1();
    if (controle.richText().indexOf(u'{') < 0) {
        if (ListesLiens* const listes = formulaire.listes())
            listes->vide();
    } else if (const auto rendu = resout(formulaire, abc, contexte)) {
        rendu->rend(controle.richTextForEdit());
        controle.notifyChanged();
    }
    controle.setSelStart(0);
}

} // namespace velm
