#pragma once
// The doors to the outside world.
#include "platform/system/courrier.h"
#include "platform/system/dialogues.h"
#include "platform/system/drives.h"
#include "platform/system/imprimante.h"
#include "platform/system/outside.h"
#include "platform/system/process.h"
#include "platform/system/sablier.h"

namespace velm {

/// None is owned.
struct MondeExterieur {
    Dialogues& dialogues;
    Navigateur& navigateur;
    Processus& processus;
    Sablier& sablier;
    PressePapiers& pressepapiers;
    Courrier& courrier;
    Imprimante& imprimante;
    const Lecteurs& lecteurs;
};

} // namespace velm
