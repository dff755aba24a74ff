#include "shell/menus.h"

#include "core/texte.h"
#include "platform/widgets/look/icons.h"
#include "shell/actions.h"
#include "shell/logique/barres.h"
#include "shell/logique/commandes.h"
#include "shell/logique/placesdesbarres.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>

namespace velm {

using namespace Qt::Literals::StringLiterals;

MenusEcran::MenusEcran(QMenuBar& barre, Actions& actions, const Libelles& texte)
    : QObject(&barre), barre_(barre), actions_(actions), texte_(texte) {
    menufichier();
    menuedition();
    menuaffichage();
    menuoutils();
    menufenetre();
    menuaide();
    // The side editor has no menu of its own, only this entry in the bar.
    barre_.addAction(&actions_.de(Ordre::Editeur));
    montredocument(false);
    connect(&actions_, &Actions::documentdevant, this, &MenusEcran::montredocument);
}

QMenu& MenusEcran::menu(const QString& nom, Texte texte) {
    QMenu& nouveau = *barre_.addMenu(texte_(texte));
    nouveau.setObjectName(nom);
    nouveau.setToolTipsVisible(true);
    return nouveau;
}

QMenu& MenusEcran::sousmenu(QMenu& menu, const QString& nom, Texte texte) {
    QMenu& nouveau = *menu.addMenu(texte_(texte));
    nouveau.setObjectName(nom);
    return nouveau;
}

void MenusEcran::remplit(QMenu& menu, std::initializer_list<std::optional<Ordre>> ordres) {
    for (const std::optional<Ordre>& ordre : ordres) {
        if (ordre)
            menu.addActions(actions_.serie(*ordre));
        else
            menu.addSeparator();
    }
}

void MenusEcran::menufichier() {
    QMenu& fichier = menu(u"mfichier"_s, Texte::MenuFichier);
    // This entry shows the list; the key beside it does so, too, and goes on to where a search is typed, so it belongs
    // to a command of its own.
    QAction& recherche = actions_.de(Ordre::MontrerSelection);
    const QKeySequence touche = actions_.de(Ordre::AllerChercher).shortcut();
    recherche.setText(recherche.text() + u'\t' + touche.toString(QKeySequence::NativeText));
    remplit(fichier, {Ordre::MontrerSelection, {}, Ordre::Enregistrer});
    QMenu& envoi = sousmenu(fichier, u"mfichiersend"_s, Texte::MenuEnvoyer);
    envoi.setIcon(icon(u"envoyer"_s));
    remplit(envoi, {Ordre::EnvoyerTexte, Ordre::EnvoyerPiece});
    envoi.setEnabled(false); // until the entries in it can be had
    connect(&actions_.de(Ordre::EnvoyerTexte), &QAction::enabledChanged, &envoi, &QMenu::setEnabled);
    remplit(fichier, {Ordre::ExporterPdf, Ordre::Ranger});
    desdocuments_ = {&actions_.de(Ordre::Enregistrer), envoi.menuAction(), &actions_.de(Ordre::Ranger),
                     &actions_.de(Ordre::ExporterPdf), fichier.addSeparator()};
    remplit(fichier,
            {Ordre::Imprimer, Ordre::Apercu, Ordre::EjecterPage, Ordre::ConfigurerImprimante, {}, Ordre::MettreAJour});
    QAction* ligne = fichier.addSeparator();
    ligne->setObjectName(u"lineLastFile"_s);
    const QAction& premier = actions_.de(Ordre::DernierDocument);
    const auto suit = [ligne, &premier] { ligne->setVisible(premier.isVisible()); };
    connect(&premier, &QAction::visibleChanged, ligne, suit);
    suit();
    remplit(fichier, {Ordre::DernierDocument, {}, Ordre::Quitter});
    actions_.de(Ordre::Quitter).setMenuRole(QAction::QuitRole);
}

void MenusEcran::menuedition() {
    QMenu& edition = menu(u"medition"_s, Texte::MenuEdition);
    desdocuments_ << edition.menuAction();
    remplit(edition, {Ordre::Copier, Ordre::CopierReference, Ordre::ToutSelectionner, Ordre::Chercher});
}

void MenusEcran::menuaffichage() {
    QMenu& affichage = menu(u"maffichage"_s, Texte::MenuAffichage);
    for (const auto& [barre, titre] : {std::pair{Barre::Commande, Texte::MenuBarreDeCommandes},
                                       {Barre::Ecran, Texte::BarreDesFenetres},
                                       {Barre::Outils, Texte::MenuBarreDOutils}}) {
        QMenu& places = sousmenu(affichage, u"maffichage0(%1)"_s.arg(static_cast<int>(barre)), titre);
        remplit(places, {ordredeplace(barre)});
    }
    remplit(affichage, {Ordre::BarreEtat, {}});
    QMenu& zoom = sousmenu(affichage, u"mzoom"_s, Texte::MenuZoom);
    remplit(zoom, {Ordre::ZoomAgrandir, Ordre::ZoomReduire, Ordre::ZoomNormal});
    remplit(affichage, {{}, Ordre::Collection, {}, Ordre::UneFenetre});
}

void MenusEcran::menuoutils() {
    remplit(menu(u"moutils"_s, Texte::MenuOutils), {Ordre::Index,
                                                    Ordre::Chrono,
                                                    Ordre::Numero,
                                                    Ordre::Dossiers,
                                                    Ordre::MotCle,
                                                    {},
                                                    Ordre::Outil,
                                                    {},
                                                    Ordre::Options});
}

void MenusEcran::menufenetre() {
    remplit(menu(u"mfenetre"_s, Texte::MenuFenetre), {Ordre::Cascade,
                                                      Ordre::Horizontalement,
                                                      Ordre::Verticalement,
                                                      {},
                                                      Ordre::FenetreSuivante,
                                                      Ordre::ToutFermer,
                                                      {},
                                                      Ordre::Fenetre});
}

void MenusEcran::menuaide() {
    remplit(menu(u"maide"_s, Texte::MenuAide),
            {Ordre::Astuce, Ordre::AideWeb, Ordre::Aide, {}, Ordre::APropos, Ordre::Partenaires});
    actions_.de(Ordre::APropos).setMenuRole(QAction::AboutRole);
}

void MenusEcran::montredocument(bool devant) {
    for (QAction* action : std::as_const(desdocuments_))
        action->setVisible(devant);
}

} // namespace velm
