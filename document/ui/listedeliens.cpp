#include "document/ui/listedeliens.h"

#include "core/langue.h"
#include "core/nombres.h"
#include "core/texte.h"
#include "document/sourceliens.h"
#include "document/ui/etiquette.h"
#include "platform/base/twips.h"
#include "platform/widgets/grid/flexgrid.h"
#include "platform/widgets/look/icons.h"
#include "platform/widgets/look/look.h"
#include "platform/widgets/look/plaintext.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QStyleOptionToolButton>
#include <QTableView>
#include <QToolButton>

namespace velm {
namespace {

using namespace Qt::Literals::StringLiterals;

/// Its chevron says whether it is pressed: no box is needed.
class BoutonDeTete final : public QToolButton {
public:
    using QToolButton::QToolButton;

protected:
    void initStyleOption(QStyleOptionToolButton* option) const override {
        QToolButton::initStyleOption(option);
        option->state.setFlag(QStyle::State_On, false);
        option->state.setFlag(QStyle::State_Raised, !isDown());
    }
};

/// Wide enough for the code of a collection, in whatever type it is shown.
Colonnes colonnes(const QWidget& grille, const Libelles& texte) {
    Colonnes larges(SourceLiens::modele(), texte);
    const int code = grille.fontMetrics().horizontalAdvance(u"WW"_s) + look::groupSpacing;
    larges.changelargeur(SourceLiens::Code, std::max(larges.largeur(SourceLiens::Code), twipsFromPixels(code)));
    return larges;
}

GrilleDocuments::Usage usage() {
    return {.unclic = true,
            .plage = false,
            .suitletri = true,
            .deplacables = false,
            .menuchoisit = true,
            .champetire = SourceLiens::Titre,
            .champimage = SourceLiens::Code};
}

} // namespace

ListeDeLiens::Sorte ListeDeLiens::liens() {
    return {u"entetelistedesliens"_s, u"ouvrirlien"_s,          u"Label1"_s,  u"flexlistedesliens"_s, Texte::Liens,
            Texte::DocumentsCites,    Texte::AucunDocumentCite, &chargeliens, &nombredeliens};
}

ListeDeLiens::Sorte ListeDeLiens::correlats() {
    return {u"entetelistedescorrelats"_s, u"ouvrircorrélats"_s, u"Label2"_s,
            u"flexlistedescorrélats"_s,   Texte::Correlats,     Texte::DocumentsCitant,
            Texte::AucunDocumentCitant,   &chargecorrelats,     &nombredecorrelats};
}

ListeDeLiens::ListeDeLiens(const Sorte& sorte, Corpus& corpus, const Libelles& texte, QWidget* fenetre)
    : QObject(fenetre), corpus_(corpus), texte_(texte), sorte_(sorte), entete_(new QWidget(fenetre)),
      bouton_(new BoutonDeTete(entete_)), grille_(new FlexGrid(fenetre)), colonnes_(colonnes(*grille_, texte)),
      documents_(*grille_, colonnes_, usage()) {
    construitentete(sorte, texte);
    construitgrille(sorte, texte);
    peintetat();
}

void ListeDeLiens::construitentete(const Sorte& sorte, const Libelles& texte) {
    entete_->setObjectName(sorte.entete);
    bouton_->setObjectName(sorte.bouton);
    bouton_->setToolTip(plainTip(texte(sorte.texteetiquette)));
    bouton_->setAccessibleName(texte(sorte.texteetiquette));
    bouton_->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    bouton_->setAutoRaise(true);
    bouton_->setCheckable(true);
    bouton_->setFocusPolicy(Qt::TabFocus);
    etiquette_ = new Etiquette(texte(sorte.texteetiquette), entete_);
    etiquette_->setObjectName(sorte.etiquette);
    etiquette_->setForegroundRole(QPalette::PlaceholderText);
    entete_->installEventFilter(this);
    auto* rangee = new QHBoxLayout(entete_);
    rangee->setSizeConstraint(QLayout::SetNoConstraint);
    rangee->setContentsMargins(look::grid, look::grid / 2, look::spacing, look::grid / 2);
    rangee->setSpacing(look::spacing);
    rangee->addWidget(bouton_);
    rangee->addWidget(etiquette_, 1);
    rangee->addStretch();
    connect(bouton_, &QToolButton::clicked, this, [this] {
        peintetat(); // the button itself changes nothing: the window does
        emit basculee();
    });
}

void ListeDeLiens::construitgrille(const Sorte& sorte, const Libelles& texte) {
    grille_->setObjectName(sorte.grille);
    grille_->setAccessibleName(texte(sorte.texteetiquette));
    grille_->hide();
    connect(&documents_, &GrilleDocuments::trivoulu, &documents_, &GrilleDocuments::trie);
    connect(&documents_, &GrilleDocuments::ouvertes, this,
            [this](const std::vector<Cle>& cles) { emit ligneouverte(cles.front()); });
    connect(&documents_, &GrilleDocuments::menuvoulu, this, &ListeDeLiens::menudemande);
}

int ListeDeLiens::hauteurentete() const {
    return bouton_->sizeHint().height() + look::grid;
}

/// The label says no more than the button: it is hidden where it would be cut.
void ListeDeLiens::montreetiquette() {
    const QMargins marges = entete_->layout()->contentsMargins();
    const int place = entete_->width() - marges.left() - marges.right() - 2 * look::spacing;
    etiquette_->setVisible(bouton_->sizeHint().width() + etiquette_->sizeHint().width() <= place);
}

bool ListeDeLiens::eventFilter(QObject* objet, QEvent* evenement) {
    if (objet == entete_ && evenement->type() == QEvent::Resize)
        montreetiquette();
    return QObject::eventFilter(objet, evenement);
}

void ListeDeLiens::montre(bool visible, bool placee) {
    visible_ = visible;
    grille_->setVisible(placee);
}

bool ListeDeLiens::placee() const {
    return !grille_->isHidden();
}

int ListeDeLiens::hauteurtitres() const {
    return grille_->view()->horizontalHeader()->sizeHint().height();
}

int ListeDeLiens::hauteurrangee() const {
    return grille_->view()->verticalHeader()->defaultSectionSize();
}

int ListeDeLiens::hauteurvoulue() const {
    constexpr int aumoins = 3;
    return hauteurtitres() + std::max(aumoins, grille_->rows() - 1) * hauteurrangee();
}

void ListeDeLiens::charge(const Cle& cle) {
    documents_.charge(std::make_unique<SourceLiens>(sorte_.charge(corpus_, cle)));
    grille_->setEmptyText(texte_(cle.vide() ? Texte::AucunDocumentOuvert : sorte_.textevide));
    nombre_ = cle.vide() ? std::nullopt : std::optional(grille_->rows() - 1);
    peintetat();
}

void ListeDeLiens::ouvre(const Cle& cle) {
    charge(cle);
    couleur_ = ListeLaterale::ouverte;
    peintetat();
}

void ListeDeLiens::ferme() {
    documents_.vide();
    grille_->setEmptyText({}); // a closed list says nothing
    couleur_ = fermee;
    peintetat();
}

void ListeDeLiens::compte(const Cle& cle) {
    nombre_ = sorte_.compte(corpus_, cle);
    peintetat();
}

void ListeDeLiens::oublie() {
    nombre_.reset();
    peintetat();
}

QStringList ListeDeLiens::cles() const {
    QStringList cles;
    for (const Cle& cle : documents_.cles(1, grille_->rows()))
        cles << cle.texte();
    return cles;
}

void ListeDeLiens::ouvrelignecourante() {
    documents_.ouvre(grille_->row());
}

/// A chevron says whether the list is open, a number how long it is, once that is known.
void ListeDeLiens::peintetat() {
    const QString nom = texte_(sorte_.textebouton);
    bouton_->setChecked(ouverte());
    bouton_->setIcon(icon(ouverte() ? u"chevronouvert"_s : u"chevronfermé"_s));
    bouton_->setText(nombre_ ? remplace(texte_(Texte::NomEtNombre), {nom, nombreecrit(*nombre_, texte_)}) : nom);
    montreetiquette();
}

} // namespace velm
