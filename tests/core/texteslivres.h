#pragma once
// The texts as they are delivered, of one language.
#include "core/texte.h"
#include "platform/system/profile.h"

namespace velm::test {

inline Libelles texteslivres(const QString& extension) {
    using namespace Qt::Literals::StringLiterals;
    return [profil = Profile(QStringLiteral(VELM_SOURCE_DIR "/langues/RES2000.") + extension)](Texte lequel) {
        return profil.string(u"VELMORANTE 2000"_s, QString::number(static_cast<int>(lequel)));
    };
}

} // namespace velm::test
