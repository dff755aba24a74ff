#include "shell/fenetrenumero.h"

#include "core/langue.h"
#include "core/tablereglages.h"
#include "platform/widgets/grid/flexgrid.h"
#include "platform/widgets/look/look.h"
#include "search/ui/controles.h"
#include "search/ui/rangees.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QTableView>
#include <QVBoxLayout>

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int lettresdunumero = 24; ///< that a box shows

DescriptionTypes descriptionnumero(const Libelles& texte) {
    return {.liste = {.nom = u"frmrechnum"_s,
                      .titre = texte(Texte::TitreRechercheNumero),
                      .colonnes = ListeNumero::modele(),
                      .cles = {reglage::numerocolonnes, reglage::numerolargeurs},
                      .usage = {.suitletri = true, .champimage = ListeNumero::Reference}},
            .statut = reglage::numerostatut};
}

QString rientrouve(const QString& numero, const Libelles& texte) {
    constexpr QChar etoile = u'*';
    return numero.endsWith(etoile) ? remplace(texte(Texte::AucunNumeroCommencant), {numero.chopped(1)})
                                   : remplace(texte(Texte::AucunDocumentDuNumero), {numero});
}

} // namespace

FenetreNumero::FenetreNumero(const ContexteTypes& contexte, QWidget* parent)
    : FenetreTypes(descriptionnumero(contexte.liste.texte), contexte, parent), noart_(new QLineEdit(this)),
      notexte_(new QLineEdit(this)) {
    construitnumeros();
    connectenumeros();
    reselect();
}

void FenetreNumero::construitnumeros() {
    const Libelles& texte = contexte().texte;
    auto* bande = new QWidget(this);
    auto* marges = new QVBoxLayout(bande);
    marges->setContentsMargins(look::windowMargin, look::spacing, look::windowMargin, look::spacing);
    // Side by side, or in a narrow window one below the other.
    auto* rangees = new Rangees;
    marges->addLayout(rangees);
    rangees->rangee(nullptr, {.ecart = look::groupSpacing});
    for (const auto& [boite, nom, libelle] : {std::tuple(noart_, u"noart"_s, Texte::NumeroDArticle),
                                              std::tuple(notexte_, u"notexte"_s, Texte::NumeroDeTexte)}) {
        boite->setObjectName(nom);
        boite->setAccessibleName(texte(libelle));
        boite->setClearButtonEnabled(true);
        boite->setFixedWidth(fontMetrics().averageCharWidth() * lettresdunumero);
        boite->installEventFilter(this);
        auto* ensemble = new QWidget(bande);
        ensemble->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
        auto* cote = new QHBoxLayout(ensemble);
        cote->setContentsMargins({});
        cote->setSpacing(look::spacing);
        cote->addWidget(nouvelleetiquette(texte(libelle), boite, ensemble));
        cote->addWidget(boite);
        rangees->addWidget(ensemble);
    }
    insere(bande);
    setTabOrder(noart_, notexte_);
    setTabOrder(notexte_, flex().view());
}

void FenetreNumero::connectenumeros() {
    connect(noart_, &QLineEdit::returnPressed, this, &FenetreNumero::retourarticle);
    connect(notexte_, &QLineEdit::returnPressed, this, &FenetreNumero::retourtexte);
    const auto seule = [](const QLineEdit* celle, QLineEdit* autre) {
        connect(celle, &QLineEdit::textChanged, autre, [autre](const QString& texte) {
            if (!texte.isEmpty())
                autre->clear();
        });
    };
    seule(noart_, notexte_);
    seule(notexte_, noart_);
}

// ---- the search

void FenetreNumero::retourarticle() {
    if (numerocherchable(noart_->text()))
        cherche(DemandeNumero::Champ::Article, noart_->text());
    else
        notexte_->setFocus(Qt::OtherFocusReason);
}

/// A star alone is no number to look for, and keeps the focus where it is.
void FenetreNumero::retourtexte() {
    if (numerocherchable(notexte_->text()))
        cherche(DemandeNumero::Champ::Texte, notexte_->text());
    else
        (notexte_->text().isEmpty() ? noart_ : notexte_)->setFocus(Qt::OtherFocusReason);
}

void FenetreNumero::cherche(DemandeNumero::Champ champ, const QString& texte) {
    demande_.champ = champ;
    demande_.texte = texte;
    nouvelle_ = true;
    reselect();
}

void FenetreNumero::reselect() {
    demande_.types = types();
    prend(std::make_unique<ListeNumero>(corpus(), demande_));
}

void FenetreNumero::rempli() {
    const Libelles& texte = contexte().texte;
    flex().setEmptyText(types().aucun()            ? texte(Texte::BilanAucuneCollection)
                        : demande_.texte.isEmpty() ? texte(Texte::TapezUnNumero)
                                                   : rientrouve(demande_.texte, texte));
    if (std::exchange(nouvelle_, false))
        flex().setTopRow(1);
}

QString FenetreNumero::compte() const {
    return demande_.texte.isEmpty() ? QString() : FenetreTypes::compte();
}

// ---- the focus

void FenetreNumero::focusInEvent(QFocusEvent* evenement) {
    noart_->setFocus(evenement->reason());
}

/// From a box the arrow goes down into the rows.
bool FenetreNumero::eventFilter(QObject* objet, QEvent* evenement) {
    if (evenement->type() != QEvent::KeyPress || (objet != noart_ && objet != notexte_))
        return FenetreTypes::eventFilter(objet, evenement);
    const auto* touche = static_cast<QKeyEvent*>(evenement);
    if (touche->key() != Qt::Key_Down || touche->modifiers() & ~Qt::KeypadModifier || flex().rows() < 2)
        return FenetreTypes::eventFilter(objet, evenement);
    if (flex().row() == 0)
        flex().setRow(1);
    flex().setFocus(Qt::OtherFocusReason);
    return true;
}

} // namespace velm
