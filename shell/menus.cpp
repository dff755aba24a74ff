#include "shell/menus.h"

#include "core/cle.h"
#include "platform/widgets/look/plaintext.h"

#include <QAction>
#include <QActionGroup>
#include <QFontMetrics>
#include <QKeySequence>
#include <QMenu>
#include <QMenuBar>

namespace velm {

namespace {

constexpr int nombredederniers = 9;
constexpr int caracteresdetitre = 80; ///< average ones, that a title may take of a menu's width

QString nomindice(const QString& nom, int indice) {
    return nom + u'(' + QString::number(indice) + u')';
}

/// A caption that came from a document: its ampersands are no accelerators, its tabs no columns.
QString sansraccourci(const QString& libelle) {
    return libelle.simplified().replace(u'&', QStringLiteral("&&"));
}

/// Captions an entry with a title that may be of any length: what is cut out of it stands in the tool tip.
void intitule(QAction& action, const QMenu& menu, const QString& debut, const QString& titre) {
    const QString ligne = titre.simplified();
    const QFontMetrics mesure = menu.fontMetrics();
    const QString montre = mesure.elidedText(ligne, Qt::ElideMiddle, mesure.averageCharWidth() * caracteresdetitre);
    action.setText(debut + sansraccourci(montre));
    action.setToolTip(entryTip(ligne, montre));
}

/// Where the five choices of a bar stand: in the view menu and in the bar's own pop-up.
struct MenusDeBarre {
    const char* dansmenu;
    const char* nom; ///< of the pop-up
    const char* contextuel;
};

MenusDeBarre menusdebarre(Barre barre) {
    switch (barre) {
    case Barre::Ecran:
        return {"mbarre2", "ContextMenuBarreTable", "mbarre6"};
    case Barre::Outils:
        return {"mbarre3", "ContextMenuBarreoutils", "mbarre4"};
    case Barre::Commande:
        break;
    }
    return {"mbarre1", "ContextMenuBarreCommandes", "mbarre5"};
}

} // namespace

MenusEcran::MenusEcran(QMenuBar& barre, const std::function<QString(int)>& texte,
                       const std::function<QIcon(const QString&)>& image)
    : QObject(&barre), texte_(texte), image_(image) {
    menufichier(barre);
    menuedition(barre);
    menuaffichage(barre);
    menuoutils(barre);
    menufenetre(barre);
    menuaide(barre);
    menuscontextuels(barre);
    // The side editor has no menu of its own, only this entry in the bar.
    QAction* editeur = barre.addAction(texte_(9017));
    editeur->setObjectName(QStringLiteral("mediteur"));
    editeur->setEnabled(false);
    entrees_.insert(editeur->objectName(), editeur);
    connect(editeur, &QAction::triggered, this, [this] { emit choisie(QStringLiteral("mediteur"), 0); });
    montredocument(false, false);
    changederniers({});
}

QAction* MenusEcran::entree(const QString& nom) const {
    QAction* action = entrees_.value(nom);
    Q_ASSERT(action);
    return action;
}

QAction* MenusEcran::entree(const QString& tableau, int indice) const {
    return entree(nomindice(tableau, indice));
}

QMenu* MenusEcran::menu(QMenuBar& barre, const char* nom, int texte) {
    QMenu* nouveau = barre.addMenu(texte_(texte));
    nouveau->setObjectName(QString::fromUtf8(nom));
    nouveau->setToolTipsVisible(true);
    return nouveau;
}

QMenu* MenusEcran::sousmenu(QMenu& menu, const QString& nom, int texte) {
    QMenu* nouveau = menu.addMenu(texte_(texte));
    nouveau->setObjectName(nom);
    return nouveau;
}

QAction* MenusEcran::ajoute(QMenu& menu, const char* nom, int indice, const QString& libelle, const FormeEntree& forme,
                            const QKeySequence& touche) {
    const QString tableau = QString::fromUtf8(nom);
    auto* action = new QAction(libelle, &menu);
    action->setObjectName(indice < 0 ? tableau : nomindice(tableau, indice));
    if (!forme.image.isEmpty())
        action->setIcon(image_(forme.image));
    action->setCheckable(forme.cochable);
    action->setEnabled(!forme.inactive);
    action->setShortcut(touche);
    menu.addAction(action);
    entrees_.insert(action->objectName(), action);
    connect(action, &QAction::triggered, this, [this, action, tableau, indice] {
        // What an entry commands sets its check mark; the click alone must not.
        if (action->isCheckable())
            action->setChecked(!action->isChecked());
        emit choisie(tableau, std::max(indice, 0));
    });
    return action;
}

void MenusEcran::menufichier(QMenuBar& barre) {
    fichier_ = menu(barre, "mfichier", 1603);
    QMenu& fichier = *fichier_;
    desdocuments_ << ajoute(fichier, "mfichier0", 0, texte_(9050), {QStringLiteral("enregistrer"), false, true},
                            QKeySequence::Save);
    QMenu* envoi = sousmenu(fichier, QStringLiteral("mfichiersend"), 9051);
    envoi->setIcon(image_(QStringLiteral("envoyer")));
    envoi->setEnabled(false);
    ajoute(*envoi, "mfichiersend", 0, texte_(9052), {QStringLiteral("texte"), false, true});
    ajoute(*envoi, "mfichiersend", 1, texte_(9053), {QStringLiteral("piècejointe"), false, true});
    desdocuments_ << envoi->menuAction();
    desdocuments_ << ajoute(fichier, "mfichier1", 0, texte_(9054), {QStringLiteral("ranger"), false, true});
    desdocuments_ << fichier.addSeparator();
    ajoute(fichier, "mfichier2", 0, texte_(9000), {QStringLiteral("Imprimer"), false, true}, QKeySequence::Print);
    ajoute(fichier, "mfichier2", 2, texte_(4405), {QStringLiteral("éjecter"), false, true});
    ajoute(fichier, "mfichier2", 3, texte_(115), {QStringLiteral("configurerimprimante"), false, true});
    fichier.addSeparator();
    ajoute(fichier, "mselection", -1, texte_(2120), {QStringLiteral("Rechercher")});
    ajoute(fichier, "Menu_MajNet", -1, texte_(7000), {QStringLiteral("majnet"), false, true});
    lineLastFile_ = fichier.addSeparator();
    lineLastFile_->setObjectName(QStringLiteral("lineLastFile"));
    for (int indice = 0; indice < nombredederniers; ++indice)
        ajoute(fichier, "mnuLastFile", indice, QString());
    fichier.addSeparator();
    QAction* quitte =
        ajoute(fichier, "mfichier3", -1, texte_(116), {QStringLiteral("quitter")}, QKeySequence(Qt::CTRL | Qt::Key_Q));
    quitte->setMenuRole(QAction::QuitRole);
}

void MenusEcran::menuedition(QMenuBar& barre) {
    QMenu& edition = *menu(barre, "medition", 9055);
    desdocuments_ << edition.menuAction();
    ajoute(edition, "medition0", 0, texte_(9056), {QStringLiteral("Copier")}, QKeySequence::Copy);
    ajoute(edition, "medition0", 1, texte_(9057), {QStringLiteral("sélectionnertout")}, QKeySequence::SelectAll);
    ajoute(edition, "medition0", 2, texte_(9058), {QStringLiteral("chercher"), false, true}, QKeySequence::Find);
}

void MenusEcran::positions(QMenu& menu, const char* tableau) {
    constexpr std::array textes{133, 134, 135, 1322, 1324};
    auto* groupe = new QActionGroup(&menu);
    for (int position = 0; position < nombredepositions; ++position)
        groupe->addAction(
            ajoute(menu, tableau, position, texte_(textes[static_cast<std::size_t>(position)]), {{}, true}));
}

void MenusEcran::menubarre(QMenu& affichage, Barre barre, int texte) {
    const QString nom = QStringLiteral("maffichage0(%1)").arg(static_cast<int>(barre));
    positions(*sousmenu(affichage, nom, texte), menusdebarre(barre).dansmenu);
}

void MenusEcran::menuscontextuels(QWidget& parent) {
    for (const Barre barre : toutesbarres) {
        auto* nouveau = new QMenu(&parent);
        nouveau->setObjectName(QString::fromLatin1(menusdebarre(barre).nom));
        positions(*nouveau, menusdebarre(barre).contextuel);
        menusbarres_[static_cast<std::size_t>(barre)] = nouveau;
    }
}

void MenusEcran::menuaffichage(QMenuBar& barre) {
    QMenu& affichage = *menu(barre, "maffichage", 101);
    menubarre(affichage, Barre::Commande, 130);
    menubarre(affichage, Barre::Ecran, 132);
    menubarre(affichage, Barre::Outils, 131);
    ajoute(affichage, "maffichage0", 3, texte_(9001), {{}, true});
    affichage.addSeparator();
    for (int indice = 0; indice < nombredefenetres; ++indice) {
        const bool liste = indice >= nombredecollections;
        QAction* action = ajoute(affichage, "maffichagef", indice, texte_(indice + 10), {{}, true, liste});
        action->setIcon(image_(QStringLiteral("collection%1").arg(indice)));
    }
    affichage.addSeparator();
    ajoute(affichage, "maffichagetfu", -1, texte_(9002), {{}, true});
}

void MenusEcran::menuoutils(QMenuBar& barre) {
    QMenu& outils = *menu(barre, "moutils", 9003);
    const std::array<QString, 5> images{QStringLiteral("Index"), QStringLiteral("chrono"), QStringLiteral("numéro"),
                                        QStringLiteral("Dossiers"), QStringLiteral("motclé")};
    for (int indice = 0; indice < 5; ++indice)
        ajoute(outils, "moutils0", indice, texte_(9004 + indice),
               {images[static_cast<std::size_t>(indice)], false, true});
    outils.addSeparator();
    ajoute(outils, "moutils3", -1, texte_(9009), {QStringLiteral("options"), false, true});
}

void MenusEcran::menufenetre(QMenuBar& barre) {
    fenetre_ = menu(barre, "mfenetre", 9010);
    QMenu& fenetre = *fenetre_;
    const std::array<QString, 3> images{QStringLiteral("Cascade"), QStringLiteral("Horizontalement"),
                                        QStringLiteral("Verticalement")};
    constexpr std::array textes{140, 142, 141};
    for (int sorte = 0; sorte < 3; ++sorte)
        ajoute(fenetre, "mdisposition", sorte, texte_(textes[static_cast<std::size_t>(sorte)]),
               {images[static_cast<std::size_t>(sorte)]});
    fenetre.addSeparator();
    for (int rang = 1; rang <= nombredefenetres; ++rang) {
        QAction* action = ajoute(fenetre, "mlistefenetre", rang, texte_(rang + 9), {{}, true});
        action->setIcon(image_(QStringLiteral("collection%1").arg(rang - 1)));
        action->setVisible(false);
    }
}

void MenusEcran::menuaide(QMenuBar& barre) {
    QMenu& aide = *menu(barre, "maide", 9011);
    ajoute(aide, "maide0", 0, texte_(9012), {QStringLiteral("astuce")});
    ajoute(aide, "maide0", 1, texte_(9013), {QStringLiteral("aideweb"), false, true});
    ajoute(aide, "maide0", 2, texte_(9014), {QStringLiteral("aide")}, QKeySequence::HelpContents);
    aide.addSeparator();
    QAction* apropos = ajoute(aide, "maide1", 0, texte_(9015), {QStringLiteral("apropos")});
    apropos->setMenuRole(QAction::AboutRole);
    ajoute(aide, "maide1", 1, texte_(9016), {QStringLiteral("partenaires")});
}

QMenu* MenusEcran::menudebarre(Barre barre) const {
    return menusbarres_[static_cast<std::size_t>(barre)];
}

void MenusEcran::cocheposition(Barre barre, int position) {
    const MenusDeBarre menus = menusdebarre(barre);
    for (const char* tableau : {menus.dansmenu, menus.contextuel}) {
        for (int indice = 0; indice < nombredepositions; ++indice)
            entree(QString::fromLatin1(tableau), indice)->setChecked(indice == position);
    }
}

void MenusEcran::montredocument(bool active, bool charge) {
    for (QAction* action : std::as_const(desdocuments_))
        action->setVisible(active);
    // A hidden menu keeps its shortcuts: they must not act on what is not there.
    for (int indice = 0; indice < 3; ++indice)
        entree(QStringLiteral("medition0"), indice)->setEnabled(active && charge);
}

void MenusEcran::changederniers(const QStringList& titres) {
    for (int indice = 0; indice < nombredederniers; ++indice) {
        QAction* action = entree(QStringLiteral("mnuLastFile"), indice);
        const QString titre = titres.value(indice);
        action->setVisible(!titre.isEmpty());
        intitule(*action, *fichier_, u'&' + QString::number(indice + 1) + u' ', titre);
    }
    lineLastFile_->setVisible(!titres.value(0).isEmpty());
}

void MenusEcran::cocheecran(int indice, bool visible) {
    entree(QStringLiteral("mlistefenetre"), indice + 1)->setVisible(visible);
}

void MenusEcran::nommeecran(int indice, const QString& titre) {
    intitule(*entree(QStringLiteral("mlistefenetre"), indice + 1), *fenetre_, QString(), titre);
}

void MenusEcran::marqueactive(int indice) {
    for (int rang = 1; rang <= nombredefenetres; ++rang)
        entree(QStringLiteral("mlistefenetre"), rang)->setChecked(rang == indice + 1);
}

} // namespace velm
