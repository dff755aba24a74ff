#pragma once
// The four passes in their literal wording: through the control's selection, its whole text read and searched again
// after every change. Slow, and right by inspection.
#include "core/cle.h"
#include "document/passes.h"

namespace velm::test {
namespace litteral {

using namespace Qt::Literals::StringLiterals;

/// First place of `motif` from place `depuis` on, counted from 1; 0 for none.
inline qsizetype instr(qsizetype depuis, const QString& texte, const QString& motif) {
    return depuis > texte.size() ? 0 : texte.indexOf(motif, depuis - 1) + 1;
}

/// `longueur` characters from a place counted from 1; a length below 0 is an error.
inline std::optional<QString> mid(const QString& texte, qsizetype depuis, qsizetype longueur) {
    return longueur < 0 ? std::nullopt : std::optional(texte.mid(depuis - 1, longueur));
}

class Oracle {
public:
    Oracle(FormulaireRiche& formulaire, bool abc, const ContextePasses& contexte)
        : rtf(formulaire.rtfRichTextBox1()), listes(formulaire.listes()), abc_(abc), contexte_(contexte) {}

    void inclusions();
    void sautsdepage();
    void sections();
    void liens();

private:
    void selectionne(qsizetype p, qsizetype longueur) {
        rtf.setSelStart(p - 1);
        rtf.setSelLength(longueur);
    }
    void section(qsizetype p, bool fermee, const QString& n, const QString& precedent, qsizetype& dernier);
    bool remplace(qsizetype p, qsizetype q, qsizetype b);

    RichTextControl& rtf;
    ListesLiens* listes;
    bool abc_;
    const ContextePasses& contexte_;
};

inline void Oracle::inclusions() {
    passes::Compteur compteur(contexte_.bornes);
    qsizetype dernier = 0;
    qsizetype p = instr(1, rtf.text(), u"{I="_s);
    while (p != 0) {
        if (p == dernier)
            return;
        dernier = p;
        const qsizetype q = instr(p + 1, rtf.text(), u"}"_s);
        if (q == 0) {
            selectionne(p, passes::longueurefface);
            rtf.setSelText(u"");
        } else {
            const QString t = *mid(rtf.text(), p + 3, q - p - 3);
            QByteArray remplacement;
            if (t.size() == 8 && codesmarques.contains(t.left(2)))
                remplacement = contexte_.source.contenu({t.left(2), t.mid(2)}).value_or(QByteArray());
            selectionne(p, q - p + 1);
            if (!remplacement.isEmpty()) {
                RichText lu;
                if (readRtf(remplacement, lu, RtfLoad::Selection) &&
                    !compteur.permet(rtf.length(), q - p + 1, lu.length()))
                    return;
                rtf.setSelRtf(remplacement);
            } else {
                rtf.setSelText(u"");
            }
        }
        p = instr(1, rtf.text(), u"{I="_s);
    }
}

inline void Oracle::sautsdepage() {
    qsizetype dernier = 0;
    qsizetype p = instr(1, rtf.text(), u"{FF}"_s);
    while (p != 0 && p != dernier) {
        dernier = p;
        selectionne(p, 4);
        rtf.setSelText(u"\r\n\f\r\n");
        p = instr(1, rtf.text(), u"{FF}"_s);
    }
}

inline void Oracle::section(qsizetype p, bool fermee, const QString& n, const QString& precedent, qsizetype& dernier) {
    static_cast<void>(p);
    if (!abc_) {
        appliquestyle(rtf, n, false, contexte_.styles, contexte_.sablier);
    } else if (stylemasque(contexte_.styles, n, precedent)) {
        rtf.setSelText(u"");
        if (fermee)
            dernier = 0;
    } else if (n == contexte_.styles.stylesuite) {
        appliquestyle(rtf, contexte_.styles.stylecondense, false, contexte_.styles, contexte_.sablier);
    }
}

inline void Oracle::sections() {
    qsizetype dernier = 0;
    bool repete = false;
    QString precedent;
    QString n;
    qsizetype p = instr(1, rtf.text(), u"{S="_s);
    while (p != 0) {
        if (p == dernier) {
            if (repete)
                return;
            repete = true;
        } else {
            repete = false;
        }
        dernier = p;
        const qsizetype q = instr(p + 3, rtf.text(), u"}"_s);
        if (q != 0) {
            selectionne(p, q - p + 1);
            n = *mid(rtf.text(), p + 3, q - p - 3);
            rtf.setSelText(u"");
            const qsizetype e = instr(p, rtf.text(), u"{-S}"_s);
            const qsizetype o = instr(p, rtf.text(), u"{S="_s);
            if (o != 0 && (e == 0 || o < e)) {
                selectionne(p, o - p);
                section(p, true, n, precedent, dernier);
            } else if (e != 0) {
                selectionne(e, 4);
                rtf.setSelText(u"");
                selectionne(p, e - p);
                section(p, true, n, precedent, dernier);
            } else {
                selectionne(p, rtf.length() - p + 1);
                section(p, false, n, precedent, dernier);
            }
        }
        p = instr(1, rtf.text(), u"{S="_s);
        precedent = n;
    }
}

/// Puts the shown text in the place of the token. False when that fails.
inline bool Oracle::remplace(qsizetype p, qsizetype q, qsizetype b) {
    selectionne(p, q - p + 1);
    const auto montre = mid(rtf.text(), p + 3, b - (p + 3));
    if (montre)
        rtf.setSelText(*montre);
    return montre.has_value();
}

inline void Oracle::liens() {
    passes::Compteur compteur(contexte_.bornes);
    passes::Cercle cercle;
    if (listes != nullptr)
        listes->vide();
    qsizetype p = instr(1, rtf.text(), u"{"_s);
    while (p != 0) {
        const QString avant = rtf.text();
        const qsizetype avantp = p;
        const QString c = avant.mid(p, 1);
        const qsizetype q = instr(p + 1, avant, u"}"_s);
        const qsizetype b = instr(p + 1, avant, u"|"_s);
        const auto permis = [&] {
            const qsizetype longueur = b - (p + 3);
            if (longueur < 0)
                return true;
            return (q > b ||
                    (compteur.permet(avant.size(), q - p + 1, longueur) &&
                     !cercle.ferme(p - 1, b - p, avant.size() - b + 1, [&] { return avant.mid(p - 1, b - p); }))) &&
                   (c != u"L"_s || listes == nullptr || compteur.retient(longueur));
        };
        const auto cible = mid(avant, b + 1, q - b - 1);
        if (c == u"L"_s) {
            if (q == 0 || b == 0 || q <= b) {
                p = p + 1;
            } else {
                if (!permis())
                    return;
                const auto montre = mid(avant, p + 3, b - (p + 3));
                if (listes != nullptr) {
                    listes->Listestarthyperlien.ajoute(p - 1);
                    listes->Listehyperlien.append(*cible);
                    listes->Listeendhyperlien.ajoute(b - 4);
                    if (montre)
                        listes->ListeValeurHyperLien.append(*montre);
                }
                remplace(p, q, b);
            }
        } else if (c == u"U"_s) {
            if (q != 0 && b != 0) {
                if (!permis())
                    return;
                if (listes != nullptr) {
                    listes->ListeStartUrl.ajoute(p - 1);
                    if (cible)
                        listes->ListeUrl.append(*cible);
                    listes->ListeEndUrl.ajoute(b - 4);
                }
                remplace(p, q, b);
            }
        } else if (c == u"E"_s) {
            if (q == 0) {
                p = p + 1;
            } else if (b != 0) {
                if (!permis())
                    return;
                if (listes != nullptr) {
                    listes->ListeStartEmail.ajoute(p - 1);
                    if (cible)
                        listes->ListeEmail.append(*cible);
                    listes->ListeEndEmail.ajoute(b - 4);
                }
                remplace(p, q, b);
            }
        } else if (q == 0) {
            p = p + 1;
        } else {
            selectionne(p, q - p + 1);
            rtf.setSelText(u"");
        }
        const QString apres = rtf.text();
        p = instr(p, apres, u"{"_s);
        // Neither the place nor the text has changed: nothing can ever change again.
        if (p == avantp && apres == avant)
            return;
    }
}

} // namespace litteral

inline void oraclechargecontenu(FormulaireRiche& formulaire, bool abc, const ContextePasses& contexte) {
    contexte.source.prepare();
    litteral::Oracle oracle(formulaire, abc, contexte);
    oracle.inclusions();
    oracle.sautsdepage();
    oracle.sections();
    oracle.liens();
    formulaire.rtfRichTextBox1().setSelStart(0);
}

} // namespace velm::test
