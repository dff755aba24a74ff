#include "shell/lignedetat.h"

#include "core/langue.h"
#include "core/nombres.h"
#include "document/placedocument.h"
#include "document/ui/textes.h"
#include "shell/bureau.h"
#include "shell/ecrangeneral.h"

namespace velm {

using namespace Qt::Literals::StringLiterals;

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
    // Which article it is, the last parts tell: where there is no room, the first ones are left out.
    const QString collection = donnees_.libelle(cle.indice());
    QString chemin = collection;
    QStringList abreges;
    for (const QString& branche : place.chemin) {
        if (branche == chemin)
            continue;
        for (QString& abrege : abreges)
            abrege = glue(Texte::CheminDansLeSommaire, {abrege, branche});
        abreges << glue(Texte::CheminDansLeSommaire, {u"\u2026"_s, branche});
        chemin = glue(Texte::CheminDansLeSommaire, {chemin, branche});
    }
    QString position;
    if (place.rang > 0)
        position = glue(Texte::PositionDansLaCollection,
                        {nombreecrit(place.rang, donnees_.texte), nombreecrit(place.nombre, donnees_.texte)});
    donnees_.ecran.ditlieu({chemin, abreges, dite_, position});
}

} // namespace velm
