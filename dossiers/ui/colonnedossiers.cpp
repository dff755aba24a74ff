#include "dossiers/ui/colonnedossiers.h"

#include "platform/widgets/look/icons.h"
#include "platform/widgets/look/look.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

namespace velm {
namespace {

using namespace Qt::Literals::StringLiterals;

constexpr int moindreecart = look::grid / 2; ///< between buttons that have no more room

} // namespace

ColonneDossiers::ColonneDossiers(const Libelles& texte, QWidget* parent)
    : QWidget(parent),
      ajouter_(bouton(u"ajouter"_s, texte(Texte::DossiersNouveau), u"dossiernouveau"_s, &ColonneDossiers::ajouter)),
      renommer_(bouton(u"renommer"_s, texte(Texte::DossiersRenommer), u"dossiermodifié"_s, &ColonneDossiers::renommer)),
      supprimer_(
          bouton(u"supprimer"_s, texte(Texte::DossiersSupprimer), u"dossiersupprimé"_s, &ColonneDossiers::supprimer)),
      haut_(bouton(u"haut"_s, {}, u"Haut"_s, &ColonneDossiers::haut)),
      bas_(bouton(u"bas"_s, {}, u"Bas"_s, &ColonneDossiers::bas)) {
    setObjectName(u"colonne"_s);
    for (const auto& [fleche, nom] : {std::pair{haut_, Texte::DossiersMonter}, {bas_, Texte::DossiersDescendre}}) {
        fleche->setToolTip(texte(nom));
        fleche->setAccessibleName(texte(nom));
    }

    auto* fleches = new QHBoxLayout;
    fleches->setSpacing(look::spacing);
    fleches->addWidget(haut_);
    fleches->addWidget(bas_);
    auto* disposition = new QVBoxLayout(this);
    disposition->setContentsMargins(0, 0, 0, 0);
    disposition->setSpacing(moindreecart);
    // In a low window they move together, so that all of them stay in sight.
    const auto ecart = [disposition](int pixels) {
        disposition->addItem(new QSpacerItem(0, pixels - moindreecart, QSizePolicy::Minimum, QSizePolicy::Maximum));
    };
    for (QPushButton* const un : {ajouter_, renommer_, supprimer_}) {
        disposition->addWidget(un);
        ecart(look::spacing);
    }
    disposition->addLayout(fleches);
    ecart(look::groupSpacing);
    disposition->addWidget(
        bouton(u"toutdevelopper"_s, texte(Texte::ToutDevelopper), {}, &ColonneDossiers::toutdevelopper));
    ecart(look::spacing);
    disposition->addWidget(bouton(u"toutreduire"_s, texte(Texte::ToutReduire), {}, &ColonneDossiers::toutreduire));
    ecart(look::groupSpacing);
    imprimer_ = bouton(u"imprimer"_s, texte(Texte::DossiersImprimer), u"Imprimer"_s, &ColonneDossiers::imprimer);
    disposition->addWidget(imprimer_);
    ecart(look::spacing);
    disposition->addWidget(bouton(u"Command1"_s, texte(Texte::Reparer), {}, &ColonneDossiers::reparer));
    ecart(look::spacing);
    retrouver_ = bouton(u"retrouver"_s, texte(Texte::DossiersRetrouver), {}, nullptr);
    disposition->addWidget(retrouver_);
    ecart(look::spacing);
    disposition->addStretch();
    disposition->addWidget(bouton(u"cmdok"_s, texte(Texte::BoutonOk), {}, &ColonneDossiers::fermer));
}

QPushButton* ColonneDossiers::bouton(const QString& nom, const QString& legende, const QString& image,
                                     void (ColonneDossiers::*signal)()) {
    auto* neuf = new QPushButton(legende, this);
    neuf->setObjectName(nom);
    // Return belongs to the tree and the list.
    neuf->setAutoDefault(false);
    if (!image.isEmpty())
        neuf->setIcon(icon(image));
    if (signal != nullptr)
        connect(neuf, &QPushButton::clicked, this, signal);
    return neuf;
}

void ColonneDossiers::permet(const CommandesDossiers& commandes) {
    ajouter_->setEnabled(commandes.ajouter);
    supprimer_->setEnabled(commandes.supprimer);
    renommer_->setEnabled(commandes.renommer);
    haut_->setEnabled(commandes.haut);
    bas_->setEnabled(commandes.bas);
    imprimer_->setEnabled(commandes.contenu);
}

} // namespace velm
