// The tool bar of a document window.
#include "document/ui/frmproperties.h"
#include "document/ui/textes.h"
#include "platform/widgets/frame/toolbar.h"
#include "platform/widgets/text/richtextbox.h"

namespace velm {

using namespace Qt::Literals::StringLiterals;

void Textes::construitbarre() {
    using Kind = Toolbar::Kind;
    struct Bouton {
        QString cle;
        Kind genre;
        QString image;
    };
    barre_ = new Toolbar(this);
    barre_->setObjectName(u"barrechild"_s);
    const std::initializer_list<Bouton> boutons = {{u"Précédent"_s, Kind::DropDown, u"Précédent"_s},
                                                   {u"Suivant"_s, Kind::DropDown, u"Suivant"_s},
                                                   {u"Haut"_s, Kind::Plain, u"Haut"_s},
                                                   {u"Bas"_s, Kind::Plain, u"Bas"_s},
                                                   {u"barreblocs"_s, Kind::Separator, {}},
                                                   {u"arbre"_s, Kind::Group, u"arbre"_s},
                                                   {u"tableau"_s, Kind::Group, u"tableau"_s},
                                                   {u"recherchedico"_s, Kind::Group, u"recherchedico"_s},
                                                   {u"barrearrangement"_s, Kind::Separator, {}},
                                                   {u"barrehoriz"_s, Kind::Group, u"barrehoriz"_s},
                                                   {u"barreverti"_s, Kind::Group, u"barreverti"_s},
                                                   {u"barrepropriétés"_s, Kind::Separator, {}},
                                                   {u"propriétés"_s, Kind::Plain, u"propriétés"_s},
                                                   {u"barreabc"_s, Kind::Separator, {}},
                                                   {u"abc"_s, Kind::Check, u"abc"_s},
                                                   {u"motprécédent"_s, Kind::Plain, u"motprécédent"_s},
                                                   {u"motsuivant"_s, Kind::Plain, u"motsuivant"_s},
                                                   {u"marqueauto"_s, Kind::Check, u"marqueauto"_s},
                                                   {u"barredossier"_s, Kind::Separator, {}},
                                                   {u"dossiers"_s, Kind::Plain, u"Dossiers"_s},
                                                   {u"document"_s, Kind::Plain, u"rangerdocument"_s}};
    for (const Bouton& bouton : boutons)
        barre_->addButton(bouton.cle, bouton.genre, bouton.image);
    montreinfobulles();
    barre_->setShortcut(u"Précédent"_s, QKeySequence(Qt::ALT | Qt::SHIFT | Qt::Key_Left));
    barre_->setShortcut(u"Suivant"_s, QKeySequence(Qt::ALT | Qt::SHIFT | Qt::Key_Right));
    barre_->setShortcut(u"Haut"_s, QKeySequence(Qt::ALT | Qt::Key_Up));
    barre_->setShortcut(u"Bas"_s, QKeySequence(Qt::ALT | Qt::Key_Down));
    barre_->setShortcut(u"propriétés"_s, QKeySequence(Qt::ALT | Qt::Key_Return));
    barre_->setMenus(u"Précédent"_s, &parcours_.historique.precedent.menus());
    barre_->setMenus(u"Suivant"_s, &parcours_.historique.suivant.menus());
    barre_->setShortcut(u"motprécédent"_s, QKeySequence(Qt::SHIFT | Qt::Key_F3));
    barre_->setShortcut(u"motsuivant"_s, QKeySequence(Qt::Key_F3));
    for (const auto& cle : {u"Précédent"_s, u"Suivant"_s, u"Haut"_s, u"Bas"_s})
        barre_->setButtonEnabled(cle, false);
    for (const auto& cle : {u"propriétés"_s, u"barrepropriétés"_s, u"abc"_s, u"barreabc"_s, u"document"_s})
        barre_->setButtonVisible(cle, false);
    montremots(false);
    montredossiers(demande(contexte_.dossiersouverts));
    connect(barre_, &Toolbar::buttonClicked, this, &Textes::clicbarre);
    connect(barre_, &Toolbar::menuClicked, this, &Textes::clicmenu);
}

void Textes::montreinfobulles() {
    const std::initializer_list<std::pair<QString, int>> infobulles = {
        {u"Précédent"_s, 170},   {u"Suivant"_s, 171},     {u"Haut"_s, 9080},          {u"Bas"_s, 9081},
        {u"arbre"_s, 9082},      {u"tableau"_s, 9083},    {u"recherchedico"_s, 9084}, {u"barrehoriz"_s, 9085},
        {u"barreverti"_s, 9086}, {u"propriétés"_s, 9087}, {u"motprécédent"_s, 9088},  {u"motsuivant"_s, 9089},
        {u"marqueauto"_s, 9090}, {u"dossiers"_s, 9091},   {u"document"_s, 9092}};
    for (const auto& [cle, numero] : infobulles)
        barre_->setToolTip(cle, texte(numero));
    infobulleabc();
}

void Textes::infobulleabc() {
    barre_->setToolTip(u"abc"_s, texte(barre_->value(u"abc"_s) ? 8111 : 8110) + u"..."_s);
}

void Textes::montredossiers(bool ouverts) {
    for (const auto& cle : {u"barredossier"_s, u"dossiers"_s})
        barre_->setButtonVisible(cle, ouverts);
}

void Textes::clicbarre(const QString& cle) {
    Navigation& navigation = contexte_.navigation;
    if (cle == u"Précédent")
        navigation.pasfenetre(indice_, Sens::Arriere);
    else if (cle == u"Suivant")
        navigation.pasfenetre(indice_, Sens::Avant);
    else if (cle == u"Haut" || cle == u"Bas")
        navigation.voisin(*this, code_, cle == u"Haut");
    else if (cle == u"arbre")
        changebloc(u"1"_s);
    else if (cle == u"tableau")
        changebloc(u"2"_s);
    else if (cle == u"recherchedico")
        changebloc(u"0"_s);
    else if (cle == u"barrehoriz")
        changearrangement(u"0"_s);
    else if (cle == u"barreverti")
        changearrangement(u"1"_s);
    else if (cle == u"propriétés")
        montreproprietes();
    else if (cle == u"abc")
        changeabc();
    else if (cle == u"motprécédent" || cle == u"motsuivant")
        vamot(cle == u"motsuivant");
    else if (cle == u"marqueauto")
        changemarqueauto();
    else if (cle == u"dossiers")
        emit ranger(QString(), QString(), 0, 0);
    else if (cle == u"document")
        range();
}

void Textes::clicmenu(const QString& cle, int rang) {
    contexte_.navigation.pasfenetre(indice_, cle == u"Précédent" ? Sens::Arriere : Sens::Avant, rang);
}

void Textes::changeabc() {
    infobulleabc();
    if (!referencecourante().isEmpty())
        affichedocumentcourant(barre_->value(u"abc"_s));
}

void Textes::range() {
    const qsizetype longueur = vue_->selLength();
    emit ranger(referencecourante(), titrecourant(), longueur > 0 ? vue_->selStart() : 0, longueur);
}

void Textes::montreproprietes() {
    if (referencecourante().isEmpty())
        return;
    remplit([this] {
        auto boite = std::make_unique<frmproperties>(ContexteProprietes{contexte_.corpus, contexte_.reglages,
                                                                        contexte_.parametres, contexte_.sablier,
                                                                        contexte_.texte, contexte_.libelle},
                                                     window());
        boite->setAttribute(Qt::WA_DeleteOnClose);
        boite->afficheproprietes(cle(), titrecourant(), document_);
        static_cast<void>(boite.release()); // it goes when it is closed
    });
}

} // namespace velm
