#include "shell/groupedepart.h"

#include "core/langue.h"
#include "document/ui/teintes.h"
#include "platform/widgets/look/look.h"

#include <QKeyEvent>

#include <algorithm>
#include <utility>

namespace velm {

namespace {

constexpr int entrecolonnes = look::groupSpacing;

} // namespace

GroupeDepart::GroupeDepart(QWidget* parent) : QWidget(parent) {
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
}

LigneDepart& GroupeDepart::ajoute(const QIcon& image, const QString& nom) {
    auto* ligne = new LigneDepart(image, nom, this);
    const int place = static_cast<int>(lignes_.size());
    lignes_.push_back(ligne);
    ligne->installEventFilter(this);
    connect(ligne, &QAbstractButton::clicked, this, [this, place] { emit pressee(place); });
    ligne->show();
    dispose();
    return *ligne;
}

/// The picture tells the collection to who knows them, its name to everybody.
LigneDepart& GroupeDepart::ajoutedocument(int indice, const QString& titre, const Libelles& texte) {
    const QString collection = texte(libelledefenetre(indice));
    LigneDepart& ligne = ajoute(iconedecollection(indice), titre);
    ligne.changesuite(collection);
    ligne.setAccessibleName(remplace(texte(Texte::CollectionComptee), {titre, collection}));
    return ligne;
}

void GroupeDepart::vide() {
    for (LigneDepart* ligne : std::exchange(lignes_, {})) {
        ligne->hide();
        ligne->deleteLater(); // it may be what was pressed
    }
    dispose();
}

// ---- their places

int GroupeDepart::hauteurdeligne() const {
    return lignes_.empty() ? 0 : lignes_.front()->minimumSizeHint().height();
}

int GroupeDepart::lignesparcolonne() const {
    const int nombre = static_cast<int>(lignes_.size());
    return (nombre + colonnes_ - 1) / colonnes_;
}

void GroupeDepart::changecolonnes(int nombre) {
    colonnes_ = std::max(nombre, 1);
    dispose();
}

int GroupeDepart::largeurvoulue() const {
    int largeur = 0;
    for (const LigneDepart* ligne : lignes_)
        largeur = std::max(largeur, ligne->sizeHint().width());
    return largeur;
}

void GroupeDepart::dispose() {
    setFixedHeight(lignesparcolonne() * hauteurdeligne());
    const int largeur = (width() - (colonnes_ - 1) * entrecolonnes) / colonnes_;
    for (std::size_t place = 0; place < lignes_.size(); ++place) {
        const int colonne = static_cast<int>(place) / lignesparcolonne();
        const int rang = static_cast<int>(place) % lignesparcolonne();
        lignes_[place]->setGeometry(colonne * (largeur + entrecolonnes), rang * hauteurdeligne(), largeur,
                                    hauteurdeligne());
    }
}

void GroupeDepart::resizeEvent(QResizeEvent* evenement) {
    QWidget::resizeEvent(evenement);
    dispose();
}

// ---- the keys

void GroupeDepart::arrete(LigneDepart* ligne) {
    for (LigneDepart* celle : lignes_)
        celle->setFocusPolicy(celle == ligne ? Qt::TabFocus : Qt::NoFocus);
}

void GroupeDepart::choisitarret() {
    const auto celle = [this](auto condition) {
        const auto ici = std::ranges::find_if(lignes_, condition);
        return ici == lignes_.end() ? nullptr : *ici;
    };
    LigneDepart* avant =
        celle([](const LigneDepart* ligne) { return ligne->isEnabled() && ligne->focusPolicy() != Qt::NoFocus; });
    arrete(avant ? avant : celle([](const LigneDepart* ligne) { return ligne->isEnabled(); }));
}

bool GroupeDepart::prendfocus(bool premiere) {
    const auto prend = [](LigneDepart* ligne) {
        if (ligne->isEnabled())
            ligne->setFocus(Qt::TabFocusReason);
        return ligne->isEnabled();
    };
    return premiere ? std::ranges::any_of(lignes_, prend) : std::any_of(lignes_.rbegin(), lignes_.rend(), prend);
}

/// To the next row that can be pressed, in steps.
void GroupeDepart::avance(std::size_t place, int pas) {
    const int nombre = static_cast<int>(lignes_.size());
    for (int ici = static_cast<int>(place) + pas; ici >= 0 && ici < nombre; ici += pas) {
        LigneDepart* ligne = lignes_[static_cast<std::size_t>(ici)];
        if (ligne->isEnabled()) {
            ligne->setFocus(Qt::TabFocusReason);
            return;
        }
    }
    if (pas == 1 || pas == -1)
        emit sortie(pas > 0);
}

bool GroupeDepart::touche(LigneDepart& ligne, int cle) {
    const auto place = static_cast<std::size_t>(std::ranges::find(lignes_, &ligne) - lignes_.begin());
    switch (cle) {
    case Qt::Key_Up:
        avance(place, -1);
        return true;
    case Qt::Key_Down:
        avance(place, 1);
        return true;
    case Qt::Key_Left:
        avance(place, -std::max(lignesparcolonne(), 2));
        return true;
    case Qt::Key_Right:
        avance(place, std::max(lignesparcolonne(), 2));
        return true;
    case Qt::Key_Home:
        return prendfocus(true);
    case Qt::Key_End:
        return prendfocus(false);
    case Qt::Key_Return:
    case Qt::Key_Enter:
        ligne.click();
        return true;
    default:
        return false;
    }
}

bool GroupeDepart::eventFilter(QObject* objet, QEvent* evenement) {
    auto* ligne = qobject_cast<LigneDepart*>(objet);
    if (ligne && evenement->type() == QEvent::FocusIn)
        arrete(ligne);
    if (ligne && evenement->type() == QEvent::KeyPress && touche(*ligne, static_cast<QKeyEvent*>(evenement)->key()))
        return true;
    return QWidget::eventFilter(objet, evenement);
}

} // namespace velm
