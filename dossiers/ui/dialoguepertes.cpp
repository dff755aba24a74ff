#include "dossiers/ui/dialoguepertes.h"

#include "core/dates.h"
#include "platform/widgets/look/look.h"
#include "platform/widgets/look/plaintext.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QPushButton>
#include <QScreen>
#include <QTreeWidget>
#include <QVBoxLayout>

#include <algorithm>

namespace velm {
namespace {

using namespace Qt::Literals::StringLiterals;

constexpr QSize taillepertes{800, 420};
constexpr int largeurdossier = 180;

} // namespace

DialoguePertes::DialoguePertes(Reprises& reprises, GestionDossiers& gestion, QWidget* parent)
    : QDialog(parent), reprises_(reprises), gestion_(gestion), texte_(gestion.donnees().texte),
      liste_(new QTreeWidget(this)), remettre_(new QPushButton(texte_(Texte::DossiersRemettre), this)) {
    setObjectName(u"pertes"_s);
    setWindowTitle(texte_(Texte::DossiersPertes));
    setWindowModality(Qt::WindowModal);
    setAttribute(Qt::WA_DeleteOnClose);
    construit();
    resize(taillepertes.boundedTo(screen()->availableGeometry().size() * 0.95));
    remplit(0);
}

void DialoguePertes::construit() {
    liste_->setObjectName(u"listepertes"_s);
    liste_->setAccessibleName(windowTitle());
    liste_->setHeaderLabels({texte_(Texte::DossiersPerteTitre), texte_(Texte::DossiersPerteDossier),
                             texte_(Texte::DossiersPerteSorte), texte_(Texte::DossiersPerteQuand)});
    liste_->setRootIsDecorated(false);
    liste_->setUniformRowHeights(true);
    liste_->setAllColumnsShowFocus(true);
    liste_->setSelectionMode(QAbstractItemView::ExtendedSelection);
    QHeaderView& colonnes = *liste_->header();
    colonnes.setStretchLastSection(false);
    colonnes.setSectionResizeMode(0, QHeaderView::Stretch);
    colonnes.setSectionsMovable(false);
    colonnes.setMinimumHeight(hauteur());
    QFont titres = colonnes.font();
    titres.setWeight(QFont::DemiBold);
    colonnes.setFont(titres);
    liste_->setColumnWidth(1, largeurdossier);
    remettre_->setObjectName(u"remettre"_s);
    remettre_->setDefault(true);
    auto* const fermer = new QPushButton(texte_(Texte::BoutonOk), this);
    fermer->setObjectName(u"fermerpertes"_s);
    fermer->setAutoDefault(false);
    connect(fermer, &QPushButton::clicked, this, &QDialog::accept);
    connect(remettre_, &QPushButton::clicked, this, &DialoguePertes::remet);
    connect(liste_, &QTreeWidget::itemSelectionChanged, this,
            [this] { remettre_->setEnabled(!liste_->selectedItems().isEmpty()); });
    connect(liste_, &QTreeWidget::itemDoubleClicked, this, &DialoguePertes::remet);

    auto* const boutons = new QHBoxLayout;
    boutons->setSpacing(look::spacing);
    boutons->addStretch();
    boutons->addWidget(remettre_);
    boutons->addWidget(fermer);
    auto* const disposition = new QVBoxLayout(this);
    disposition->setSpacing(look::groupSpacing);
    disposition->addWidget(liste_);
    disposition->addLayout(boutons);
}

/// Of a row, with room around its words.
int DialoguePertes::hauteur() const {
    return fontMetrics().height() + look::spacing;
}

QString DialoguePertes::sorte(Perte::Sorte sorte) const {
    switch (sorte) {
    case Perte::Sorte::Element:
        return texte_(Texte::DossiersPerteSupprime);
    case Perte::Sorte::Titre:
        return texte_(Texte::DossiersPerteEfface);
    case Perte::Sorte::Dossier:
        return texte_(Texte::DossiersPerteNonEnregistre);
    case Perte::Sorte::DossierSupprime:
        return texte_(Texte::DossiersPerteDossierSupprime);
    }
    return {};
}

void DialoguePertes::remplit(int choisie) {
    liste_->clear();
    const auto& pertes = reprises_.journal().pertes();
    QList<QTreeWidgetItem*> rangs;
    for (auto une = pertes.rbegin(); une != pertes.rend(); ++une) {
        const QDateTime quand = une->quand.toLocalTime();
        const QString titre = une->dundossier() ? une->nomdossier : une->rangee.titre;
        auto* const rang = new QTreeWidgetItem(
            {titre, une->nomdossier, sorte(une->sorte),
             dateecrite(quand.date().toString(Qt::ISODate), texte_) + u' ' + quand.time().toString(u"HH:mm"_s)});
        rang->setToolTip(0, plainTip(titre));
        rang->setToolTip(1, plainTip(une->nomdossier));
        rang->setSizeHint(0, QSize(0, hauteur()));
        rangs << rang;
    }
    liste_->addTopLevelItems(rangs);
    for (const int colonne : {2, 3}) {
        const int large = std::max(static_cast<QAbstractItemView*>(liste_)->sizeHintForColumn(colonne),
                                   liste_->header()->sectionSizeHint(colonne));
        liste_->setColumnWidth(colonne, large + look::spacing);
    }
    if (!rangs.isEmpty())
        liste_->setCurrentItem(rangs[std::min(choisie, static_cast<int>(rangs.size()) - 1)]);
}

void DialoguePertes::remet() {
    std::vector<int> rangs;
    for (QTreeWidgetItem* const choisi : liste_->selectedItems())
        rangs.push_back(liste_->indexOfTopLevelItem(choisi));
    if (rangs.empty())
        return;
    // The oldest, which stands last, comes back first.
    std::sort(rangs.begin(), rangs.end(), std::greater());
    const auto& pertes = reprises_.journal().pertes();
    std::vector<Perte> choisies;
    for (const int rang : rangs)
        choisies.push_back(pertes[pertes.size() - 1 - static_cast<std::size_t>(rang)]);
    gestion_.reussi(reprises_.remet(choisies).echec, Texte::DossiersPasModifies);
    remplit(rangs.back());
    if (pertes.empty())
        accept();
}

} // namespace velm
