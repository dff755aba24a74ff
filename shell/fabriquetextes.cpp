#include "shell/fabriquetextes.h"

#include "document/ui/textes.h"
#include "platform/widgets/frame/childarea.h"
#include "search/motscommencant.h"
#include "search/ui/completionmots.h"
#include "shell/bureau.h"
#include "shell/ecrangeneral.h"
#include "shell/selection.h"
#include "shell/volet.h"

namespace velm {

Textes* FabriqueTextes::fait(int indice) const {
    ContexteTextes contexte{corpus,
                            reglages,
                            bureau.navigation(),
                            styles,
                            seance.parametres(),
                            monde.sablier,
                            monde.navigateur,
                            monde.pressepapiers,
                            rafraichir,
                            [&langue = langue](int numero) { return langue.lireressource(numero); },
                            [&seance = seance](int slot) { return seance.libelle(slot); }};
    raccordecadre(contexte);
    raccordemots(contexte);
    auto* fenetre = new Textes(indice, contexte);
    QObject::connect(fenetre, &Textes::selection, &selection,
                     [&selection = selection](const QStringList& cles) { selection.controle().remplit(cles); });
    return fenetre;
}

void FabriqueTextes::raccordecadre(ContexteTextes& contexte) const {
    contexte.listeselectionvisible = [&volet = volet] { return volet.isVisible(); };
    contexte.dossiersouverts = [&bureau = bureau] { return bureau.dossiersouverts(); };
    contexte.formesouvertes = [&bureau = bureau] { return bureau.nombredeformes(); };
    contexte.montremosaique = [&ecran = ecran](bool visible) { ecran.montredispositions(visible); };
    contexte.place = [&aire = aire](const QWidget& fenetre) {
        const QRect ici = aire.twipsOf(&fenetre);
        return PlaceTextes{aire.stateOf(&fenetre), ici.left(), ici.top(), ici.width(), ici.height()};
    };
    contexte.dit = [&dialogues = monde.dialogues, &langue = langue](const QString& texte) {
        dialogues.message(texte, langue.lireressource(8), Icone::Exclamation);
    };
}

void FabriqueTextes::raccordemots(ContexteTextes& contexte) const {
    contexte.marquage = [&seance = seance] {
        const Preferences& preferences = seance.preferences();
        return Marquage{static_cast<int>(preferences.marquecouleur), preferences.marquebold != 0,
                        preferences.marqueitalic != 0, preferences.marqueauto != 0};
    };
    contexte.cherchemots = [&selection = selection](const QString& code, const QString& mots,
                                                    const std::function<void(const QString&)>& ligne) {
        selection.controle().cherchedans(code, mots, ligne);
    };
    contexte.completemots = [&corpus = corpus, &langue = langue](QLineEdit& mots) {
        new CompletionMots(
            &mots, [&corpus](const QString& debut, int nombre) { return motscommencant(corpus, debut, nombre); },
            separateursmots(), langue.lireressource(9459));
    };
}

} // namespace velm
