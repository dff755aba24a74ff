#include "document/affichage.h"

#include "core/cle.h"
#include "platform/base/failure.h"
#include "platform/base/memory.h"

#include <array>

namespace velm {
namespace {

using namespace Qt::Literals::StringLiterals;

constexpr int blanc = 0xFFFFFF;
const QString cleprimaire = u"primarykey"_s;

/// Copies the row; the body comes last, since the passes move the shared table's current row.
void copieligne(FormulaireDocument& formulaire, const QString& code, bool abc, const ContexteAffichage& contexte) {
    const Recordset& ligne = contexte.corpus.donnees();
    DocumentAffiche& document = formulaire.document();
    document.titre = ligne.text(u"titre"_s);
    formulaire.changetitre(contexte.libelle(indicedetype(code)) + u" - "_s + document.titre);
    document.motcle1 = ligne.text(u"motclé1"_s);
    document.motcle2 = ligne.text(u"motclé2"_s);
    document.motcle3 = ligne.text(u"motclé3"_s);
    document.Source = ligne.text(u"Source"_s);
    document.datetext = ligne.text(u"Date"_s);
    document.datecreation = ligne.text(u"datecreation"_s);
    document.datemodif = ligne.text(u"datemodif"_s);
    document.typedocument = ligne.text(u"typededocument"_s);
    document.numeroarborescence = ligne.text(u"numeroarborescence"_s);
    RichTextControl& controle = formulaire.rtfRichTextBox1();
    // A row without a colour is shown on white paper rather than on black.
    controle.setBackColor(ligne.isNull(u"BackColor"_s) ? blanc : static_cast<int>(ligne.number(u"BackColor"_s)));
    controle.setTextRtf(ligne.bytes(u"contenu"_s));
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

void recharge(ListeLaterale& liste, const QString& code, const QString& numero) {
    if (liste.visible() && liste.couleurbouton() == ListeLaterale::ouverte)
        liste.recharge(code, numero);
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
    failureOf([this] { corpus_.donnees().setIndex(cleprimaire); });
}

std::optional<QByteArray> SourceCorpus::contenu(const QString& code, const QString& numero) {
    std::optional<QByteArray> trouve;
    failureOf([&] {
        Recordset& donnees = corpus_.donnees();
        donnees.seek(Seek::Equal, code, numero);
        if (!donnees.noMatch())
            trouve = donnees.bytes(u"contenu"_s);
    });
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

void affichedocument(FormulaireDocument& formulaire, const QString& code, const QString& numero, bool abc,
                     const QString& ancre, const ContexteAffichage& contexte) {
    Chargement chargement(formulaire, contexte.sablier);
    RichTextControl& controle = formulaire.rtfRichTextBox1();
    Recordset& donnees = contexte.corpus.donnees();
    donnees.setIndex(cleprimaire);
    donnees.seek(Seek::Equal, code, numero);
    if (!donnees.noMatch())
        copieligne(formulaire, code, abc, contexte);
    formulaire.activemenus();
    positionne(controle, ancre);
    controle.setRedraw(true);
    controle.setVisible(true);
    formulaire.rafraichit();
    chargement.reussit();
    recharge(formulaire.listedesliens(), code, numero);
    recharge(formulaire.listedescorrelats(), code, numero);
}

} // namespace velm
