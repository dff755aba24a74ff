// The words of a search in a document window: marks, the walk through them, and the block that looks words up.
#include "document/ui/blocrecherche.h"
#include "document/ui/textes.h"
#include "platform/widgets/frame/toolbar.h"
#include "platform/widgets/text/richtextbox.h"

#include <QPointer>

namespace velm {

using namespace Qt::Literals::StringLiterals;

void Textes::montremots(bool visibles) {
    for (const auto& cle : {u"motprécédent"_s, u"motsuivant"_s, u"marqueauto"_s})
        barre_->setButtonVisible(cle, visibles);
}

void Textes::recoitmots(const QString& mot1, const QString& mot2) {
    const bool autres = mot1 != mots_.mot1 || mot2 != mots_.mot2;
    // The document was here already, with the marks of an earlier search.
    if (autres && barre_->value(u"marqueauto"_s) && !referencecourante().isEmpty())
        affichedocumentcourant(false);
    mots_ = {mot1, mot2, 0};
    montremots(!mot1.isEmpty());
    if (!mot1.isEmpty() && contexte_.marquage && contexte_.marquage().automatique) {
        barre_->setValue(u"marqueauto"_s, true);
        if (const qsizetype premiere = marque(); premiere >= 0)
            vue_->reveal(premiere);
    }
}

qsizetype Textes::marque() {
    return contexte_.marquage ? marquemots(vue_->control(), mots_, contexte_.marquage()).premiere : -1;
}

void Textes::changemarqueauto() {
    if (barre_->value(u"marqueauto"_s)) {
        marque();
    } else if (!referencecourante().isEmpty()) {
        barre_->setValue(u"abc"_s, false);
        infobulleabc();
        affichedocumentcourant(false);
    }
    vue_->setFocus();
}

void Textes::vamot(bool suivant) {
    const RichText& texte = vue_->control().richText();
    const std::optional<Occurrence> ici = suivant ? motsuivant(texte, mots_) : motprecedent(texte, mots_);
    if (!ici)
        return;
    vue_->control().setSelStart(ici->debut);
    vue_->control().setSelLength(ici->longueur);
    mots_.posdepartrecherche = ici->debut;
}

void Textes::cherchemots(const QString& mots) {
    if (!contexte_.cherchemots)
        return;
    // The search may have to wait for another one, and the window be closed meanwhile.
    contexte_.cherchemots(code_, mots, [bloc = QPointer(blocrecherche_)](const QString& ligne) {
        if (bloc)
            bloc->ajouteligne(ligne);
    });
}

} // namespace velm
