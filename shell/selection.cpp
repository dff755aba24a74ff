#include "shell/selection.h"

#include "core/cle.h"
#include "core/langue.h"
#include "core/reglages.h"
#include "document/ui/textes.h"
#include "platform/base/memory.h"
#include "platform/system/files.h"
#include "platform/widgets/frame/statusbar.h"
#include "platform/widgets/frame/toolbar.h"
#include "platform/widgets/grid/flexgrid.h"
#include "search/recherchedico.h"
#include "search/selectionoutil.h"
#include "shell/bureau.h"
#include "shell/ecrangeneral.h"
#include "shell/volet.h"

#include <QCoreApplication>
#include <QMenu>
#include <QTableView>

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

const QString sectionrecherche = u"RECHERCHE"_s;
const QString cleordre = u"ORDRECOLONNE"_s;
/// So many documents are opened without a question: a list with all its rows selected takes its time.
constexpr qsizetype plusdouvertures = 50;
const QString clelargeurs = u"LARGEURCOLONNE"_s;

} // namespace

Selection::Selection(Ecrangeneral& ecran, Bureau& bureau, const Monde& monde)
    : ecran_(ecran), bureau_(bureau), monde_(monde), liste_(monde.texte),
      cession_([] { QCoreApplication::processEvents(); }),
      atelier_{
          monde.corpus, liste_, monde.sablier, monde.dialogues, cession_, monde.texte, [this](const QString& etat) {
              ecran_.barreetat().setPanelText(u"wait"_s, etat);
          }} {
    reprise_.setSingleShot(true);
    connect(&reprise_, &QTimer::timeout, this, [this] {
        if (auto travail = std::exchange(suite_, {}))
            quandlibre(std::move(travail));
    });
    litcolonnes();
    prepareflex();
    construitmenu();
    barre().setButtonEnabled(u"regrouper"_s, true);
    connect(&barre(), &Toolbar::buttonClicked, this, &Selection::clicbarre);
    montrelignes();
}

Selection::~Selection() {
    // The grid reads the rows here.
    flex().setSource(nullptr);
}

FlexGrid& Selection::flex() const {
    return ecran_.picturesselection().flex();
}

Toolbar& Selection::barre() const {
    return ecran_.picturesselection().recherchetoolbar();
}

// ---- the form's side

void Selection::commence() {
    if (++remplissages_ > 1)
        return;
    focus_ = flex().view()->hasFocus();
    flex().setRedraw(false);
    flex().hide();
}

void Selection::acheve() {
    if (--remplissages_ > 0)
        return;
    montrelignes();
    // Not here: the search that has just left may still be on its way out.
    if (suite_)
        reprise_.start(0);
}

void Selection::montrelignes() {
    for (int colonne = 0; colonne < ListeSelection::colonnesvisibles; ++colonne) {
        const ListeSelection::Marque marque = liste_.marque(colonne);
        flex().setSortMark(colonne, marque == ListeSelection::Marque::Ascendante    ? FlexGrid::Mark::Ascending
                                    : marque == ListeSelection::Marque::Descendante ? FlexGrid::Mark::Descending
                                                                                    : FlexGrid::Mark::None);
    }
    flex().setRedraw(true);
    montreselection();
    if (liste_.row() == 0)
        flex().setTopRow(1);
    flex().setVisible(liste_.visible);
    // What is hidden gives the focus to its neighbour.
    const QWidget* avec = ecran_.focusWidget();
    if (std::exchange(focus_, false) && liste_.visible && (!avec || ecran_.picturesselection().isAncestorOf(avec)))
        flex().setFocus();
}

void Selection::publie(const PublicationFin& fin) {
    for (const QString& cle : {u"précédentrecherche"_s, u"suivantrecherche"_s, u"sauvercritères"_s,
                               u"imprimercritères"_s, u"envoyercritères"_s})
        barre().setButtonEnabled(cle, fin.resultatpresent);
    barre().setButtonEnabled(u"ouvrircritères"_s, fin.ouvrircriteres);
}

void Selection::formulairevisible(bool visible) {
    barre().setValue(u"affichercritères"_s, visible);
    barre().setToolTip(u"affichercritères"_s, texte(infobullecriteres(visible)));
}

void Selection::montreliste() {
    ecran_.montreselection(true);
    bureau_.majdispositions();
}

// ---- the panel

void Selection::affichemenuselection(bool visible) {
    if (!visible) {
        atelier_.curseurattente(QString());
        cachepanneau();
        return;
    }
    ecran_.montreselection(true);
    if (!liste_.visible)
        emit criteresvoulus(true);
    bureau_.majdispositions();
}

/// With the form: what it found beside a hidden panel would be seen nowhere.
void Selection::cachepanneau() {
    ecran_.montreselection(false);
    emit criteresvoulus(false);
    bureau_.majdispositions();
}

void Selection::clicbarre(const QString& cle) {
    if (cle == u"regrouper")
        regroupe();
    else if (cle == u"imprimercritères")
        imprime();
    else if (cle == u"suivantrecherche")
        suivantrecherche();
    else if (cle == u"précédentrecherche")
        precedentrecherche();
}

void Selection::regroupe() {
    const bool enfonce = barre().value(u"regrouper"_s);
    flex().setMergeCells(enfonce);
    barre().setToolTip(u"regrouper"_s, texte(infobulleregrouper(enfonce)));
}

// ---- the grid

void Selection::prepareflex() {
    FlexGrid& grille = flex();
    constexpr int pointsdestitres = 10;
    grille.setRedraw(false);
    grille.setCols(ListeSelection::colonnes);
    grille.setHeaderFontSize(pointsdestitres);
    grille.setColumnsMovable(true);
    // The source knows its columns by their first places: they are made there and then moved.
    const ListeSelection premiere(monde_.texte);
    for (int colonne = 0; colonne < ListeSelection::colonnes; ++colonne) {
        grille.setColData(colonne, premiere.coldata(colonne));
        grille.setHeader(colonne, premiere.entete(colonne));
        grille.setColAlignment(colonne, FlexGrid::Align::Left);
        grille.setHeaderAlignment(colonne, FlexGrid::Align::Centre);
    }
    for (int place = 0; place < ListeSelection::colonnesvisibles; ++place) {
        int ici = place;
        while (grille.colData(ici) != liste_.coldata(place))
            ++ici;
        grille.setColPosition(ici, place);
    }
    for (int colonne = 0; colonne < ListeSelection::colonnes; ++colonne)
        grille.setColWidth(colonne, liste_.largeur(colonne));
    grille.setSource(liste_.source());
    connect(&grille, &FlexGrid::columnMoved, this, [this](int de, int vers) { liste_.deplacecolonne(de, vers); });
    connect(&grille, &FlexGrid::doubleClicked, this, [this](int ligne, int colonne) {
        if (ligne == 0)
            trie(colonne);
        else
            ouvre();
    });
    connect(&grille, &FlexGrid::activated, this, &Selection::ouvre);
    connect(&grille, &FlexGrid::deletePressed, this, &Selection::supprime);
    connect(&grille, &FlexGrid::rightClicked, this, [this](int, int, const QPoint& ou) {
        if (flex().row() > 0)
            menu_->popup(ou);
    });
}

void Selection::construitmenu() {
    menu_ = new QMenu(&ecran_.picturesselection());
    menu_->setObjectName(u"ContextMenu"_s);
    const auto entree = [this](const QString& nom, int numero) {
        QAction* action = menu_->addAction(texte(numero));
        action->setObjectName(nom);
        return action;
    };
    connect(entree(u"ContextMenuOuvrir"_s, 9018), &QAction::triggered, this, &Selection::ouvre);
    connect(entree(u"ContextMenuSuppress"_s, 9019), &QAction::triggered, this, &Selection::supprime);
    connect(entree(u"ContextMenuPrint"_s, 9020), &QAction::triggered, this, &Selection::imprime);
}

void Selection::litcolonnes() {
    const Reglages& reglages = monde_.reglages;
    liste_.prendcolonnes(reglages.getsetting(sectionrecherche, cleordre),
                         reglages.getsetting(sectionrecherche, clelargeurs));
}

void Selection::ecritcolonnes() {
    const QString largeurs = liste_.largeurs();
    for (int colonne = 0; colonne < ListeSelection::colonnesvisibles; ++colonne)
        liste_.changelargeur(colonne, flex().colWidth(colonne));
    Reglages& reglages = monde_.reglages;
    if (liste_.ordre() != reglages.getsetting(sectionrecherche, cleordre, ListeSelection::masqueordre.toString()))
        reglages.savesetting(sectionrecherche, cleordre, liste_.ordre());
    if (liste_.largeurs() != largeurs)
        reglages.savesetting(sectionrecherche, clelargeurs, liste_.largeurs());
}

void Selection::suitselection() {
    liste_.choisit(flex().row(), flex().rowSel());
}

void Selection::montreselection() {
    flex().setRow(liste_.row());
    if (liste_.rowsel() != liste_.row())
        flex().setRowSel(liste_.rowsel());
}

void Selection::trie(int colonne) {
    if (remplissages_ > 0)
        return;
    const Attente attente(monde_.sablier);
    suitselection();
    flex().sort(colonne, flex().sortMark(colonne) == FlexGrid::Mark::Ascending);
    montreselection();
}

void Selection::ouvre() {
    if (remplissages_ > 0)
        return;
    suitselection();
    const auto [premiere, derniere] = liste_.rangschoisis();
    QStringList cles;
    for (int rang = std::max(premiere, 1); rang <= derniere; ++rang)
        cles << liste_.cle(rang);
    if (cles.size() > plusdouvertures && !veutouvrir(cles.size()))
        return;
    for (const QString& cle : std::as_const(cles))
        ouvrecle(cle);
}

bool Selection::veutouvrir(qsizetype nombre) const {
    constexpr int question = 9495;
    constexpr int titre = 8;
    return monde_.dialogues.message(remplace(texte(question), {QString::number(nombre)}), texte(titre), Icone::Question,
                                    Bouton::Oui | Bouton::Non, Bouton::Non) == Bouton::Oui;
}

void Selection::ouvrecle(const QString& cle) {
    const Cle visee = decoupecle(cle);
    bureau_.navigation().ouvre(visee, {.replier = true});
    Textes* fenetre = bureau_.active();
    if (fenetre && fenetre->code() == visee.code)
        fenetre->recoitmots(liste_.mot1, liste_.mot2);
}

void Selection::supprime() {
    if (remplissages_ > 0 || flex().row() < 1)
        return;
    suitselection();
    flex().setRedraw(false);
    liste_.supprimeselection();
    flex().setRedraw(true);
    montreselection();
    atelier_.curseurattente(textecompte(liste_.lignes(), monde_.texte));
}

void Selection::imprime() {
    constexpr int question = 2432;
    constexpr int titre = 33;
    constexpr int impossible = 9496;
    if (remplissages_ > 0 || liste_.lignes() == 0 ||
        monde_.dialogues.message(texte(question) + u" ?"_s, texte(titre), Icone::Question, Bouton::Oui | Bouton::Non) !=
            Bouton::Oui)
        return;
    flex().selectAll();
    TableauImprime tableau{texte(titre), {}, {}, flex().clip()};
    for (int colonne = 0; colonne < flex().cols(); ++colonne) {
        tableau.entetes << flex().header(colonne);
        tableau.largeurs << flex().colWidth(colonne);
    }
    const bool imprimee = [&] {
        const Attente attente(monde_.sablier);
        return monde_.imprimante.imprime(tableau);
    }();
    if (!imprimee)
        monde_.dialogues.message(texte(impossible), texte(titre), Icone::Exclamation);
}

void Selection::suivantrecherche() {
    if (remplissages_ > 0)
        return;
    suitselection();
    if (!liste_.suivantrecherche())
        return;
    montreselection();
    ouvre();
}

void Selection::precedentrecherche() {
    if (remplissages_ > 0)
        return;
    suitselection();
    if (!liste_.precedentrecherche())
        return;
    montreselection();
    ouvre();
}

// ---- lists that come from elsewhere

void Selection::quandlibre(std::function<void()> travail) {
    if (remplissages_ == 0) {
        travaille(travail);
        return;
    }
    suite_ = std::move(travail);
    etat_.rechercheactive = false;
}

/// Where the memory does not suffice, what the list holds by then stays.
void Selection::travaille(const std::function<void()>& travail) {
    constexpr int sansmemoire = 9567;
    constexpr int titre = 8;
    if (withinMemory(travail))
        return;
    {
        const Remplissage remplissage(*this);
        publie(finitliste(atelier_, etat_));
    }
    montreliste();
    monde_.dialogues.message(texte(sansmemoire), texte(titre), Icone::Exclamation);
}

void Selection::remplit(const QStringList& cles) {
    quandlibre([this, cles] { remplitmaintenant(cles); });
}

void Selection::remplitmaintenant(const QStringList& cles) {
    {
        const Remplissage remplissage(*this);
        commenceliste(atelier_);
        for (const QString& cle : cles) {
            const Recordset* rangee = monde_.corpus.rangee(decoupecle(cle));
            if (rangee && ajoutedocument(liste_, *rangee) != 0)
                break;
        }
        publie(finitliste(atelier_, etat_));
        atelier_.curseurattente(textecompte(liste_.lignes(), monde_.texte));
    }
    montreliste();
}

void Selection::cherchedans(const QString& code, const QString& mots,
                            const std::function<void(const QString&)>& ligne) {
    quandlibre([this, code, mots, ligne] { cherchemaintenant(code, mots, ligne); });
}

void Selection::cherchemaintenant(const QString& code, const QString& mots,
                                  const std::function<void(const QString&)>& ligne) {
    const Remplissage remplissage(*this);
    const ResultatDico resultat = RechercheDico(atelier_, ligne).cherche(DemandeDico::defenetre(mots, code), etat_);
    publie(resultat.fin);
    if (resultat.fin.resultatpresent) {
        montreliste();
        return;
    }
    if (resultat.issue == ResultatDico::Issue::Terminee)
        atelier_.curseurattente(textecompte(0, monde_.texte));
    cachepanneau();
}

bool Selection::prenddoutil(const QString& dossiertemporaire) {
    const QString chemin = fichierselection(dossiertemporaire);
    if (!fileExists(chemin))
        return false;
    quandlibre([this, chemin] { prendmaintenant(chemin); });
    return true;
}

void Selection::prendmaintenant(const QString& chemin) {
    const Remplissage remplissage(*this);
    const auto resultat = remplitdepuisoutil(chemin, atelier_, etat_);
    if (!resultat)
        return;
    publie(resultat->fin);
    VoletSelection& volet = ecran_.picturesselection();
    volet.changelargeurliste(std::max(volet.largeurliste(), LargeurVolet::minimumoutil));
    montreliste();
}

} // namespace velm
