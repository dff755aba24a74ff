#pragma once
// The engine on a scripted printer, with settings that leave a page of ten lines.
#include "appareil_script.h"
#include "print/impression.h"

#include <gtest/gtest.h>

namespace velm::test {

using namespace Qt::Literals::StringLiterals;

/// A text of so many letters.
inline QString lettres(qsizetype nombre) {
    return QString(nombre, u'a');
}

inline QString textefrancais(Texte lequel) {
    return lequel == Texte::MarqueNomDossier ? u"DOSSIER"_s : u"<%1>"_s.arg(static_cast<int>(lequel));
}

class BancImpression : public testing::Test {
protected:
    BancImpression() {
        for (ReglagesImpression* r : {&documents, &dossiers}) {
            r->margehaute = 1000;
            r->margeentete = 500;
            r->margebasse = 1100;
            r->margepieddepage = 600;
            r->margegauche = 800;
            r->margedroite = 900;
            r->ejectionautomatique = false;
            r->ligneseparatrice = false;
        }
        // From 1500 - 240 to 12970 - 1700 - 240: ten lines of a thousand, less than eleven.
        appareil.feuille = {11906, 12970, 11406, 12470, 250, 240};
    }
    void montre(qsizetype nombre) { rtf.setText(lettres(nombre)); }
    void choisit(qsizetype debut, qsizetype longueur) {
        rtf.setSelStart(debut);
        rtf.setSelLength(longueur);
    }
    void imprimetout() { impression.imprimerichtext(rtf, 0, Impression::tout); }
    void imprimeselection() { impression.imprimerichtext(rtf, rtf.selStart(), rtf.selStart() + rtf.selLength()); }
    qsizetype nombre(const QString& appel) const { return appareil.appels.count(appel); }

    AppareilScript appareil;
    EtatImpression etat;
    ReglagesImpression documents;
    ReglagesImpression dossiers;
    RichTextControl rtf;
    QList<bool> boutons;
    Impression impression{
        {appareil, etat, documents, dossiers, textefrancais, [this](bool ouvert) { boutons << ouvert; }}};
};

} // namespace velm::test
