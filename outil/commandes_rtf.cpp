// Commands on a single rich text file.
#include "outil/sortie.h"
#include "platform/richtext/rtf.h"
#include "platform/richtext/runs_json.h"

namespace velm::outil {

namespace {

/// Runs `fait` on the bytes of the one file that the command names.
int surunfichier(Contexte& contexte, const std::function<QByteArray(QByteArrayView)>& fait) {
    if (!contexte.optioninconnue().isEmpty())
        return contexte.echoue(LigneIncorrecte, 9338, {contexte.optioninconnue()});
    if (contexte.arguments().isEmpty())
        return contexte.echoue(LigneIncorrecte, 9336, {contexte.texte(9394)});
    const auto octets = litfichier(contexte, contexte.arguments().first());
    if (!octets)
        return Echec;
    contexte.ecrit(fait(*octets));
    return Reussite;
}

} // namespace

int texte(Contexte& contexte) {
    return surunfichier(contexte, [](QByteArrayView octets) { return rtfToText(octets).toUtf8(); });
}

int rtf(Contexte& contexte) {
    return surunfichier(contexte, [](QByteArrayView octets) {
        RichText lu;
        readRtf(octets, lu);
        return writeRtf(lu);
    });
}

int formats(Contexte& contexte) {
    return surunfichier(contexte, [](QByteArrayView octets) {
        RichText lu;
        readRtf(octets, lu);
        return formatsJson(lu);
    });
}

} // namespace velm::outil
