// Commands on a single rich text file.
#include "outil/sortie.h"
#include "platform/richtext/rtf.h"
#include "platform/richtext/runs_json.h"

namespace velm::outil {

namespace {

/// Runs `fait` on the bytes of the one file that the command names.
int surunfichier(Contexte& contexte, const std::function<void(QByteArrayView)>& fait) {
    const auto octets = litfichier(contexte, contexte.arguments().first(), FileKind::Any);
    if (!octets)
        return Echec;
    fait(*octets);
    return Reussite;
}

} // namespace

int texte(Contexte& contexte) {
    return surunfichier(contexte, [&](QByteArrayView octets) { contexte.ecrit(rtfToText(octets).toUtf8()); });
}

int rtf(Contexte& contexte) {
    return surunfichier(contexte, [&](QByteArrayView octets) {
        RichText lu;
        readRtf(octets, lu);
        contexte.ecrit(writeRtf(lu));
    });
}

int formats(Contexte& contexte) {
    return surunfichier(contexte, [&](QByteArrayView octets) {
        RichText lu;
        readRtf(octets, lu);
        formatsJson(lu, [&](QByteArrayView morceau) { contexte.ecrit(morceau); });
    });
}

} // namespace velm::outil
