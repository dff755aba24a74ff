#include "shell/fabriquetextes.h"

#include "core/texte.h"
#include "document/ui/textes.h"
#include "platform/widgets/frame/childarea.h"
#include "search/motscommencant.h"
#include "search/ui/completionmots.h"
#include "shell/bureau.h"
#include "shell/ecrangeneral.h"
#include "shell/selection.h"
#include "shell/volet.h"

#include <utility>

namespace velm {

FabriqueTextes::FabriqueTextes(const Donnees& donnees) : donnees_(donnees) {}

Textes* FabriqueTextes::fait(int indice) {
    const ContexteLecture lecture{donnees_.corpus,
                                  donnees_.bureau.navigation(),
                                  donnees_.styles,
                                  donnees_.monde.sablier,
                                  donnees_.monde.navigateur,
                                  [&langue = donnees_.langue](Texte numero) { return langue.lireressource(numero); },
                                  [&seance = donnees_.seance](int slot) { return seance.libelle(slot); }};
    auto* fenetre = new Textes(
        indice, {lecture, donnees_.reglages, donnees_.seance.parametres(), donnees_.monde.pressepapiers, *this, *this});
    QObject::connect(fenetre, &Textes::selection, &donnees_.selection,
                     [&selection = donnees_.selection](const QStringList& cles) {
                         selection.controle().remplissage().remplitdecles(cles);
                     });
    donnees_.faite(*fenetre);
    return fenetre;
}

// ---- Voisinage

bool FabriqueTextes::listeselectionvisible() const {
    return donnees_.volet.isVisible();
}

bool FabriqueTextes::dossiersouverts() const {
    return donnees_.bureau.dossiersouverts();
}

int FabriqueTextes::formesouvertes() const {
    return donnees_.bureau.nombredeformes();
}

void FabriqueTextes::montremosaique(bool visible) {
    donnees_.ecran.montredispositions(visible);
}

PlaceTextes FabriqueTextes::place(const QWidget& fenetre) const {
    const ChildArea& aire = donnees_.aire;
    const QRect ici = aire.twipsOf(&fenetre);
    return {aire.stateOf(&fenetre), ici.left(), ici.top(), ici.width(), ici.height()};
}

bool FabriqueTextes::prendrafraichir(int indice) {
    return std::exchange(donnees_.rafraichir.at(static_cast<std::size_t>(indice)), false);
}

void FabriqueTextes::dit(const QString& texte) {
    donnees_.monde.dialogues.message(texte, donnees_.langue.lireressource(Texte::NomDuProgramme), Icone::Exclamation);
}

// ---- AideMots

Marquage FabriqueTextes::marquage() const {
    const Preferences& preferences = donnees_.seance.preferences();
    return {static_cast<int>(preferences.marquecouleur), preferences.marquebold != 0, preferences.marqueitalic != 0,
            preferences.marqueauto != 0};
}

void FabriqueTextes::cherche(const QString& code, const QString& mots, const Ecoute& ecoute, bool tous) {
    donnees_.selection.controle().remplissage().cherchedans(code, mots, {ecoute.ligne, ecoute.fin}, tous);
}

void FabriqueTextes::complete(QLineEdit& boite) {
    new CompletionMots(
        &boite,
        [&corpus = donnees_.corpus](const QString& debut, int nombre) { return motscommencant(corpus, debut, nombre); },
        separateursmots(), donnees_.langue.lireressource(Texte::MotsProposes));
}

} // namespace velm
