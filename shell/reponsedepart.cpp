#include "shell/reponsedepart.h"

#include "platform/widgets/look/look.h"
#include "platform/widgets/look/noteline.h"
#include "shell/groupedepart.h"

#include <QApplication>
#include <QBoxLayout>
#include <QPushButton>
#include <QToolButton>

#include <algorithm>
#include <iterator>
#include <utility>

namespace velm {

using namespace Qt::Literals::StringLiterals;

ReponseDepart::ReponseDepart(const Libelles& texte, QWidget* parent)
    : QWidget(parent), texte_(texte), bilan_(new NoteLine(this)), trouves_(new GroupeDepart(this)),
      boutons_(new QBoxLayout(QBoxLayout::LeftToRight)),
      tous_(new QPushButton(texte(Texte::BureauTousLesResultats), this)),
      detaillee_(new QPushButton(texte(Texte::BureauRechercheDetaillee), this)) {
    auto* dedans = new QVBoxLayout(this);
    dedans->setContentsMargins({});
    dedans->setSpacing(look::grid);
    bilan_->setObjectName(u"bilandepart"_s);
    dedans->addWidget(bilan_);
    trouves_->setObjectName(u"trouves"_s);
    dedans->addWidget(trouves_);
    dedans->addSpacing(look::spacing);
    tous_->setObjectName(u"touslesresultats"_s);
    detaillee_->setObjectName(u"recherchedetaillee"_s);
    boutons_->setSpacing(look::spacing);
    boutons_->addWidget(tous_, 0, Qt::AlignLeft);
    boutons_->addWidget(detaillee_, 0, Qt::AlignLeft);
    boutons_->addStretch();
    dedans->addLayout(boutons_);
    dedans->addStretch();
    connect(trouves_, &GroupeDepart::pressee, this,
            [this](int place) { emit documentvoulu(cles_.at(static_cast<std::size_t>(place))); });
    connect(trouves_, &GroupeDepart::sortie, this, [this](bool versbas) {
        if (versbas)
            tous_->setFocus(Qt::TabFocusReason);
        else
            emit remonte();
    });
    connect(tous_, &QPushButton::clicked, this, &ReponseDepart::tousvoulus);
    connect(detaillee_, &QPushButton::clicked, this, &ReponseDepart::recherchevoulue);
    connect(bilan_, &NoteLine::linkClicked, this, &ReponseDepart::recherchevoulue);
}

bool ReponseDepart::montre(const std::vector<DocumentTrouve>& trouves, const QString& bilan) {
    // A search tells its first rows before the others: who is walking them already stays among them.
    const bool parmi = trouves_->isAncestorOf(QApplication::focusWidget());
    std::vector<Cle> cles;
    std::ranges::transform(trouves, std::back_inserter(cles), &DocumentTrouve::cle);
    bool garde = true;
    if (std::exchange(cles_, cles) != cles) {
        trouves_->vide();
        for (const DocumentTrouve& celui : trouves)
            trouves_->ajoutedocument(celui.cle.indice(), celui.titre.simplified(), texte_);
        trouves_->choisitarret();
        garde = !parmi || trouves_->prendfocus(true);
    }
    // Where there is nothing, the other way to search is a word of the answer, and no button in its place.
    const QString ailleurs = trouves.empty() ? texte_(Texte::BureauRechercheDetaillee) : QString();
    bilan_->say(bilan, NoteLine::Tone::Quiet, ailleurs);
    for (QWidget* bouton : {tous_, detaillee_})
        bouton->setVisible(!trouves.empty());
    return garde;
}

void ReponseDepart::dispose(int largeur) {
    const int boutons = tous_->sizeHint().width() + detaillee_->sizeHint().width() + look::spacing;
    boutons_->setDirection(boutons <= largeur ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom);
}

void ReponseDepart::prendfocus() {
    if (!trouves_->prendfocus(true) && !bilan_->link()->isHidden())
        bilan_->link()->setFocus(Qt::TabFocusReason);
}

} // namespace velm
