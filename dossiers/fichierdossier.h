#pragma once
// Files of one dossier (DV2), without those below it: a signature, the name, and for each item its key and its text as
// the list shows it. They hold no text of documents.
#include "dossiers/contenudossier.h"

#include <QByteArray>
#include <QByteArrayView>

#include <optional>

namespace velm {

struct FichierDossier {
    static constexpr QStringView entete = u"VELMORante 2000 - DV2";

    QString nom;
    ContenuDossier::Paires elements; ///< keys and texts
    /// It ends behind a key, of which the text is missing: that item is none.
    bool interrompu = false;

    friend bool operator==(const FichierDossier&, const FichierDossier&) = default;
};

/// The bytes of a file, in the code page; what that lacks is written by its nearest letters.
QByteArray ecritfichierdossier(const FichierDossier& fichier);

/// Nothing when the first line is another. CR LF ends a line, and so does either alone. A name that is missing is
/// empty.
std::optional<FichierDossier> litfichierdossier(QByteArrayView octets);

} // namespace velm
