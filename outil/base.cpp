#include "outil/base.h"

#include "core/texte.h"
#include "platform/system/files.h"

namespace velm::outil {

using namespace Qt::Literals::StringLiterals;

QString cheminbase(const Contexte& contexte) {
    const QString base = contexte.valeur(u"--base"_s);
    return base.isEmpty() ? joinPath(contexte.dossierprogramme(), u"velm2000.dat") : base;
}

int ouvrebase(Contexte& contexte, Corpus& corpus, const QString& chemin) {
    switch (corpus.connecte(chemin)) {
    case OpenError::None:
        corpus.ouvretables();
        return Reussite;
    case OpenError::OldEngine:
        return contexte.echoue(Echec, Texte::AncienMoteur, {chemin});
    default:
        return contexte.echouefichier(Texte::FichierIllisible, chemin, corpus.echec().kind, corpus.echec().words);
    }
}

} // namespace velm::outil
