#include "document/affichage.h"

#include "platform/base/failure.h"
#include "platform/base/memory.h"

#include <array>

namespace velm {
namespace {

using namespace Qt::Literals::StringLiterals;

constexpr int blanc = 0xFFFFFF;

/// The caption changes right behind the title, before the other values.
void montre(FormulaireDocument& formulaire, const Cle& cle, const Notice& notice, bool abc,
            const ContexteAffichage& contexte) {
    DocumentAffiche& document = formulaire.document();
    document.titre = notice.titre;
    formulaire.changetitre(contexte.libelle(cle.indice()) + u" - "_s + notice.titre);
    document = notice;
    RichTextControl& controle = formulaire.rtfRichTextBox1();
    // A row without a colour is shown on white paper rather than on black.
    controle.setBackColor(notice.couleur.value_or(blanc));
    controle.setTextRtf(contexte.corpus.corps(cle).value_or(QByteArray()));
    SourceCorpus source(contexte.corpus);
    chargecontenu(formulaire, abc, {contexte.styles, source, contexte.sablier, contexte.bornes});
}

/// The hourglass, and a control that does not redraw. A document that could not be loaded to its end leaves no piece of
/// itself that could be taken for the whole.
class Chargement {
public:
    Chargement(FormulaireDocument& formulaire, Sablier& sablier) : formulaire_(formulaire), sablier_(sablier) {
        sablier_.fixepointeur(Sablier::attente);
        formulaire_.rtfRichTextBox1().setRedraw(false);
    }
    ~Chargement() {
        if (!reussi_)
            withinMemory([this] { abandonne(); });
        sablier_.fixepointeur(Sablier::defaut);
    }
    Chargement(const Chargement&) = delete;
    Chargement& operator=(const Chargement&) = delete;

    void reussit() { reussi_ = true; }

private:
    void abandonne() {
        RichTextControl& controle = formulaire_.rtfRichTextBox1();
        controle.setRedraw(false);
        controle.setText({});
        if (ListesLiens* const listes = formulaire_.listes())
            listes->vide();
        controle.setRedraw(true);
        formulaire_.rafraichit();
    }

    FormulaireDocument& formulaire_;
    Sablier& sablier_;
    bool reussi_ = false;
};

void recharge(ListeLaterale& liste, const Cle& cle) {
    if (liste.visible() && liste.couleurbouton() == ListeLaterale::ouverte)
        liste.recharge(cle);
}

/// Position, counted from 1, of the first pattern that is found from the first line end `d` on; 0 for none.
qsizetype cherche(const RichText& texte, const QString& ancre, qsizetype d) {
    // The first one never matches, as a line feed stands behind each CR; the others do the work.
    const std::array<QString, 4> motifs = {u"\r"_s + ancre + u" "_s, u"."_s + ancre + u" "_s, u" "_s + ancre + u" "_s,
                                           ancre};
    for (const QString& motif : motifs) {
        const qsizetype place = texte.indexOf(motif, d - 1);
        if (place >= 0)
            return place + 1;
    }
    return 0;
}

} // namespace

void SourceCorpus::prepare() {
    failureOf([this] { corpus_.donnees().setIndex(u"primarykey"_s); });
}

std::optional<QByteArray> SourceCorpus::contenu(const Cle& cle) {
    std::optional<QByteArray> trouve;
    failureOf([&] { trouve = corpus_.corps(cle); });
    return trouve;
}

void positionne(RichTextControl& controle, const QString& ancre) {
    if (ancre.isEmpty()) {
        controle.setSelStart(0);
        return;
    }
    constexpr qsizetype trop = 10;
    const qsizetype d = controle.richText().indexOf(u'\r') + 1;
    qsizetype r = d > 0 ? cherche(controle.richText(), ancre, d) : 0;
    if (r - d < trop)
        r = 0;
    // The position counted from 1 is taken as one from 0: the caret first comes to stand one behind the hit's start.
    controle.setSelStart(r);
    if (r != 0)
        controle.upTo(u"\r\n", false, false);
}

void affichedocument(FormulaireDocument& formulaire, const Cle& cle, bool abc, const QString& ancre,
                     const ContexteAffichage& contexte) {
    Chargement chargement(formulaire, contexte.sablier);
    RichTextControl& controle = formulaire.rtfRichTextBox1();
    if (const std::optional<Notice> notice = contexte.corpus.document(cle))
        montre(formulaire, cle, *notice, abc, contexte);
    formulaire.activemenus();
    positionne(controle, ancre);
    controle.setRedraw(true);
    controle.setVisible(true);
    formulaire.rafraichit();
    chargement.reussit();
    recharge(formulaire.listedesliens(), cle);
    recharge(formulaire.listedescorrelats(), cle);
}

} // namespace velm
