#include "shell/lignedetat.h"

#include "core/langue.h"
#include "core/nombres.h"
#include "document/placedocument.h"
#include "document/ui/textes.h"
#include "shell/bureau.h"
#include "shell/ecrangeneral.h"

namespace velm {

namespace {

constexpr int tempsdundocument = 20; ///< milliseconds in which a document comes on the screen

} // namespace

LigneDEtat::LigneDEtat(const Donnees& donnees) : donnees_(donnees) {
    apreslaffichage_.setSingleShot(true);
    apreslaffichage_.setInterval(tempsdundocument);
    connect(&apreslaffichage_, &QTimer::timeout, this, &LigneDEtat::dit);
    connect(&donnees_.bureau, &Bureau::devantchange, this, &LigneDEtat::suit);
}

void LigneDEtat::arrete() {
    arretee_ = true;
    apreslaffichage_.stop();
}

void LigneDEtat::suit() {
    const Textes* active = donnees_.bureau.active();
    const QString reference = active ? active->referencecourante() : QString();
    if (arretee_ || reference == dite_)
        return;
    dite_ = reference;
    if (reference.isEmpty()) {
        apreslaffichage_.stop();
        donnees_.ecran.ditlieu({});
    } else {
        apreslaffichage_.start();
    }
}

void LigneDEtat::dit() {
    const Cle cle = decoupecle(dite_);
    const PlaceDocument place = placedocument(donnees_.corpus, cle);
    const auto glue = [this](Texte comment, const QStringList& parties) {
        return remplace(donnees_.texte(comment), parties);
    };
    QString chemin = donnees_.libelle(cle.indice());
    for (const QString& branche : place.chemin) {
        if (branche != chemin)
            chemin = glue(Texte::CheminDansLeSommaire, {chemin, branche});
    }
    QString position;
    if (place.rang > 0)
        position = glue(Texte::PositionDansLaCollection,
                        {nombreecrit(place.rang, donnees_.texte), nombreecrit(place.nombre, donnees_.texte)});
    donnees_.ecran.ditlieu({chemin, dite_, position});
}

} // namespace velm
