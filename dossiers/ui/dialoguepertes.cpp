#include "dossiers/ui/dialoguepertes.h"

#include "core/dates.h"
#include "platform/widgets/look/look.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

#include <algorithm>
#include <array>

namespace velm {
namespace {

using namespace Qt::Literals::StringLiterals;

constexpr QSize taillepertes{720, 420};
constexpr std::array largeurs{280, 160, 130};

} // namespace

DialoguePertes::DialoguePertes(Reprises& reprises, GestionDossiers& gestion, QWidget* parent)
    : QDialog(parent), reprises_(reprises), gestion_(gestion), texte_(gestion.donnees().texte),
      liste_(new QTreeWidget(this)), remettre_(new QPushButton(texte_(Texte::DossiersRemettre), this)) {
    setObjectName(u"pertes"_s);
    setWindowTitle(texte_(Texte::DossiersPertes));
    setWindowModality(Qt::WindowModal);
    setAttribute(Qt::WA_DeleteOnClose);
    construit();
    resize(taillepertes);
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
    for (std::size_t colonne = 0; colonne < largeurs.size(); ++colonne)
        liste_->setColumnWidth(static_cast<int>(colonne), largeurs[colonne]);
    remettre_->setObjectName(u"remettre"_s);
    remettre_->setDefault(true);
    auto* const fermer = new QPushButton(texte_(Texte::BoutonOk), this);
    fermer->setObjectName(u"fermerpertes"_s);
    fermer->setAutoDefault(false);
    connect(fermer, &QPushButton::clicked, this, &QDialog::accept);
    connect(remettre_, &QPushButton::clicked, this, &DialoguePertes::remet);
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

QString DialoguePertes::sorte(Perte::Sorte sorte) const {
    switch (sorte) {
    case Perte::Sorte::Element:
        return texte_(Texte::DossiersPerteSupprime);
    case Perte::Sorte::Titre:
        return texte_(Texte::DossiersPerteEfface);
    case Perte::Sorte::Dossier:
        return texte_(Texte::DossiersPerteNonEnregistre);
    }
    return {};
}

void DialoguePertes::remplit(int choisie) {
    liste_->clear();
    const auto& pertes = reprises_.journal().pertes();
    QList<QTreeWidgetItem*> rangs;
    for (auto une = pertes.rbegin(); une != pertes.rend(); ++une) {
        const QDateTime quand = une->quand.toLocalTime();
        const bool dossier = une->sorte == Perte::Sorte::Dossier;
        const QString titre = dossier ? une->nomdossier : une->rangee.titre;
        auto* const rang = new QTreeWidgetItem(
            {titre, une->nomdossier, sorte(une->sorte),
             dateecrite(quand.date().toString(Qt::ISODate), texte_) + u' ' + quand.time().toString(u"HH:mm"_s)});
        rang->setToolTip(0, titre.toHtmlEscaped());
        rang->setToolTip(1, une->nomdossier.toHtmlEscaped());
        rangs << rang;
    }
    liste_->addTopLevelItems(rangs);
    remettre_->setEnabled(!rangs.isEmpty());
    if (!rangs.isEmpty())
        liste_->setCurrentItem(rangs[std::min(choisie, static_cast<int>(rangs.size()) - 1)]);
}

void DialoguePertes::remet() {
    const int rang = liste_->indexOfTopLevelItem(liste_->currentItem());
    const auto& pertes = reprises_.journal().pertes();
    if (rang < 0 || rang >= static_cast<int>(pertes.size()))
        return;
    const auto fait = reprises_.remet(pertes[pertes.size() - 1 - static_cast<std::size_t>(rang)]);
    gestion_.reussi(fait.echec, Texte::DossiersPasModifies);
    remplit(rang);
}

} // namespace velm
