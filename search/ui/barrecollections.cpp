#include "search/ui/barrecollections.h"

#include "core/cle.h"
#include "platform/widgets/look/icons.h"
#include "platform/widgets/look/look.h"
#include "platform/widgets/look/plaintext.h"
#include "search/ui/controles.h"
#include "search/ui/rangees.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QEvent>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>

#include <algorithm>
#include <tuple>
#include <utility>

namespace velm {

using namespace Qt::Literals::StringLiterals;

BarreCollections::BarreCollections(const Libelles& texte, QWidget* parent) : QWidget(parent), grille_(new QGridLayout) {
    setObjectName(u"barre_cran"_s);
    setAccessibleName(texte(Texte::CritereCollections));
    auto* disposition = new QVBoxLayout(this);
    disposition->setContentsMargins({});
    disposition->setSpacing(look::spacing);
    disposition->addLayout(construitentete(texte));
    disposition->addLayout(grille_);
    grille_->setHorizontalSpacing(look::groupSpacing);
    grille_->setVerticalSpacing(look::grid);
    construitboites(texte);
    range();
}

QLayout* BarreCollections::construitentete(const Libelles& texte) {
    auto* ligne = new Rangees;
    ligne->rangee(nouvelleetiquette(texte(Texte::CritereCollections), nullptr, this), {});
    ligne->ajouteressort();
    for (const auto& [nom, libelle, toutes] : {std::tuple(u"toutsélect"_s, Texte::ToutSelectionner, true),
                                               std::tuple(u"toutdéselect"_s, Texte::ToutDeselectionner, false)}) {
        auto* bouton = nouveaubouton(nom, texte(libelle), this);
        connect(bouton, &QPushButton::clicked, this, [this, coche = toutes] {
            for (QCheckBox* boite : boites_)
                boite->setChecked(coche);
        });
        ligne->addWidget(bouton);
    }
    return ligne;
}

void BarreCollections::construitboites(const Libelles& texte) {
    // Of a group, one box alone is a stop of the Tab key: the one that had the focus last.
    auto* groupe = new QButtonGroup(this);
    groupe->setExclusive(false);
    for (int collection = 0; collection < nombredecollections; ++collection) {
        const QString nom = texte(libelledefenetre(collection));
        auto* boite = new QCheckBox(withoutMnemonic(nom), this);
        boite->setObjectName(typedindice(collection));
        boite->setIcon(icon(u"collection%1"_s.arg(collection)));
        boite->setToolTip(plainTip(nom));
        boite->setChecked(true);
        boite->setFocusPolicy(collection == 0 ? Qt::StrongFocus : Qt::ClickFocus);
        boite->installEventFilter(this);
        groupe->addButton(boite);
        boites_ << boite;
    }
}

QString BarreCollections::keyAt(int rang) const {
    return rang >= 1 && rang <= buttonCount() ? boites_.at(rang - 1)->objectName() : QString();
}

QCheckBox* BarreCollections::widget(const QString& code) const {
    const auto celle = std::ranges::find_if(boites_, [&](const QCheckBox* une) { return une->objectName() == code; });
    return celle == boites_.end() ? nullptr : *celle;
}

bool BarreCollections::value(const QString& code) const {
    const QCheckBox* boite = widget(code);
    return boite && boite->isChecked();
}

void BarreCollections::setValue(const QString& code, bool coche) {
    if (QCheckBox* boite = widget(code))
        boite->setChecked(coche);
}

int BarreCollections::pluslarge() const {
    int largeur = 0;
    for (const QCheckBox* boite : boites_)
        largeur = std::max(largeur, boite->sizeHint().width());
    return largeur;
}

QSize BarreCollections::minimumSizeHint() const {
    // Not the width of the rows as they are: the form may become narrower.
    return {pluslarge(), QWidget::minimumSizeHint().height()};
}

/// From the left to the right, and then from the top to the bottom.
void BarreCollections::range() {
    const int espace = grille_->horizontalSpacing();
    const int tiennent = (width() + espace) / std::max(pluslarge() + espace, 1);
    const int parrangee = std::clamp(tiennent, 1, nombredecollections);
    if (std::exchange(parrangee_, parrangee) == parrangee)
        return;
    for (int rang = 0; rang < buttonCount(); ++rang)
        grille_->addWidget(boites_.at(rang), rang / parrangee, rang % parrangee, Qt::AlignLeft);
    for (int colonne = 0; colonne < buttonCount(); ++colonne) {
        grille_->setColumnMinimumWidth(colonne, colonne < parrangee ? pluslarge() : 0);
        grille_->setColumnStretch(colonne, colonne < parrangee ? 1 : 0);
    }
}

/// The box that a key leads to from another; -1 for a key that leads nowhere.
int BarreCollections::voisine(int rang, int touche) const {
    const auto la = [this](int vers) { return vers >= 0 && vers < buttonCount() ? vers : -1; };
    switch (touche) {
    case Qt::Key_Left:
        return la(rang - 1);
    case Qt::Key_Right:
        return la(rang + 1);
    case Qt::Key_Up:
        return la(rang - parrangee_);
    case Qt::Key_Down:
        return la(rang + parrangee_);
    case Qt::Key_Home:
        return la(0);
    case Qt::Key_End:
        return la(buttonCount() - 1);
    default:
        return -1;
    }
}

bool BarreCollections::eventFilter(QObject* objet, QEvent* evenement) {
    if (evenement->type() != QEvent::KeyPress)
        return QWidget::eventFilter(objet, evenement);
    const auto ici = static_cast<int>(boites_.indexOf(static_cast<QCheckBox*>(objet)));
    const int vers = voisine(ici, static_cast<QKeyEvent*>(evenement)->key());
    if (vers < 0)
        return QWidget::eventFilter(objet, evenement);
    boites_.at(vers)->setFocus(Qt::TabFocusReason);
    return true;
}

void BarreCollections::resizeEvent(QResizeEvent* evenement) {
    QWidget::resizeEvent(evenement);
    range();
}

void BarreCollections::changeEvent(QEvent* evenement) {
    QWidget::changeEvent(evenement);
    if (evenement->type() == QEvent::FontChange || evenement->type() == QEvent::StyleChange)
        range();
}

} // namespace velm
