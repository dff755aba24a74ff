#include "outil/base.h"

#include "platform/system/files.h"

namespace velm::outil {

QString cheminbase(const Contexte& contexte) {
    const QString base = contexte.valeur(QStringLiteral("--base"));
    return base.isEmpty() ? joinPath(contexte.dossierprogramme(), u"velm2000.dat") : base;
}

int ouvrebase(Contexte& contexte, Corpus& corpus, const QString& chemin) {
    switch (corpus.connecte(chemin)) {
    case OpenError::None:
        corpus.ouvretables();
        return Reussite;
    case OpenError::OldEngine:
        return contexte.echoue(Echec, 9333, {chemin});
    default:
        return contexte.echouefichier(9330, chemin, corpus.echec().kind, corpus.echec().words);
    }
}

} // namespace velm::outil
