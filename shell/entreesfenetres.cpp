#include "shell/entreesfenetres.h"

#include "document/ui/textes.h"
#include "shell/actions.h"
#include "shell/bureau.h"

#include <QAction>

namespace velm {

namespace {

constexpr int derniernumero = 9; ///< the last one that is a digit

} // namespace

QString debutnumerote(int numero) {
    return u'&' + QString::number(numero) + u' ';
}

EntreesFenetres::EntreesFenetres(Bureau& bureau, Actions& actions) : bureau_(bureau), actions_(actions) {
    connect(&bureau_, &Bureau::devantchange, this, &EntreesFenetres::intitule);
}

/// With several windows of a collection, the entry of the slot names the one that it brings forward.
void EntreesFenetres::intitule() {
    int numero = 0;
    for (int indice = 0; indice < nombredecollections; ++indice) {
        const Textes* celle = bureau_.fenetre(indice);
        if (!celle)
            continue;
        const bool numerotee = actions_.de(Ordre::Fenetre, indice).isVisible() && ++numero <= derniernumero;
        actions_.intitule(Ordre::Fenetre, indice, numerotee ? debutnumerote(numero) : QString(), celle->windowTitle());
    }
}

} // namespace velm
