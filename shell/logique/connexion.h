#pragma once
// The search for a base that does not open where it should be: on the discs, at the same place again, or where the user
// points. No window lives here.
#include "core/corpus.h"
#include "core/langue.h"
#include "platform/system/dialogues.h"
#include "platform/system/drives.h"
#include "shell/logique/seance.h"

#include <functional>

namespace velm {

class Connexion {
public:
    /// What is shown while a base is copied to the disk.
    struct Copie {
        std::function<void(const QString& etape)> commence;
        std::function<void(double pourcentage)> avance;
        std::function<void()> finit;
    };
    /// None is owned. `dossierprogramme`: where a copy goes.
    struct Services {
        Seance& seance;
        Corpus& corpus;
        Dialogues& dialogues;
        const Lecteurs& lecteurs;
        Langue& langue;
        QString dossierprogramme;
        Copie copie;
    };
    explicit Connexion(Services services);

    /// Looks for the base at the root of each disc in its drive, in the drives' order, and offers to copy it. True with
    /// an open base.
    bool parcourtlecteurs();
    /// Once more at the same place.
    bool reessaie();
    /// In the folder of a file that the user chooses; nothing changes when none is chosen.
    bool cherche();

    /// Where the base was looked for last, and why it did not open there.
    QString lieu() const;
    QString cause() const;

private:
    bool ouvre();
    bool surledisque(const QString& racine);
    bool copie();

    Services services_;
    OpenError erreur_ = OpenError::None;
};

} // namespace velm
