#pragma once
// Files by which users hand something to each other: read, written where the user wants them, and mailed, with what is
// asked and said on the way.
#include "core/texte.h"
#include "platform/system/courrier.h"
#include "platform/system/dialogues.h"
#include "platform/system/sablier.h"

#include <functional>
#include <optional>

namespace velm {

class FichiersEchanges {
public:
    /// None is owned. All must live as long as `courrier`, which may still have to say that it has failed.
    FichiersEchanges(Dialogues& dialogues, Sablier& sablier, Courrier& courrier, Libelles texte)
        : dialogues_(dialogues), sablier_(sablier), courrier_(courrier), texte_(std::move(texte)) {}

    /// The bytes of a file; of one that does not begin with this line only its beginning, however long it is. Nothing
    /// when it cannot be read, which has been said.
    std::optional<QByteArray> lit(const QString& chemin, QStringView entete) const;
    void ditautreformat() const;
    /// Writes where the user wants it, whole or not at all. False when the user gives up or it cannot be written, which
    /// has been said. `icone`: of the question whether a file is replaced.
    bool enregistre(ChoixFichier ou, Icone icone, const std::function<QByteArray()>& octets) const;
    /// Opens a message in the mail program with the file attached.
    void envoie(const QString& nom, const QByteArray& octets) const;
    /// Opens this message in the mail program.
    void envoie(const Courriel& courriel) const;
    /// Says that a file is not written, and why.
    void ditnonecrit(const QString& nom, const FileError& erreur, Texte titre) const;

private:
    Dialogues& dialogues_;
    Sablier& sablier_;
    Courrier& courrier_;
    Libelles texte_;
};

} // namespace velm
