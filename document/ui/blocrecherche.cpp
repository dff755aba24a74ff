#include "document/ui/blocrecherche.h"

#include "core/texte.h"
#include "document/dispositiontextes.h"
#include "document/ui/etiquette.h"
#include "platform/base/twips.h"
#include "platform/widgets/look/look.h"
#include "platform/widgets/text/linelist.h"

#include <QApplication>
#include <QEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>

#include <algorithm>

namespace velm {

using namespace Qt::Literals::StringLiterals;

BlocRecherche::BlocRecherche(const Libelles& texte, QWidget* fenetre)
    : QWidget(fenetre), etiquette_(new Etiquette(texte(Texte::MotsDansLaCollection), this)), mots_(new QLineEdit(this)),
      bouton_(new QPushButton(texte(Texte::ChercherDansLaCollection), this)), resultat_(new LineList(this)) {
    setObjectName(u"blocrecherche"_s);
    mots_->setObjectName(u"Textedico"_s);
    mots_->setAccessibleName(texte(Texte::MotsDansLaCollection));
    etiquette_->setBuddy(mots_);
    bouton_->setObjectName(u"cmdokdico"_s);
    bouton_->setAccessibleName(texte(Texte::ChercherDansLaCollection));
    resultat_->setObjectName(u"resultat"_s);
    resultat_->setAccessibleName(texte(Texte::RechercheDansLaCollection));
    setAccessibleName(texte(Texte::RechercheDansLaCollection));
    resultat_->setUniformItemSizes(true);
    resultat_->setSpacing(look::grid / 2);
    connect(bouton_, &QPushButton::clicked, this, &BlocRecherche::lance);
    connect(mots_, &QLineEdit::returnPressed, this, &BlocRecherche::lance);
    for (const auto choix : {&QListWidget::itemClicked, &QListWidget::itemActivated}) {
        connect(resultat_, choix, this, [this](const QListWidgetItem* ligne) {
            if (ligne)
                reprend(ligne->text());
        });
    }
}

void BlocRecherche::lance() {
    resultat_->clear();
    emit recherche(mots_->text());
}

void BlocRecherche::reprend(const QString& ligne) {
    const qsizetype fin = ligne.indexOf(u" :"_s);
    // The second half of a double click would fall on the lines of the search that the first one has begun.
    const bool double_ = depuisclic_.isValid() && !depuisclic_.hasExpired(QApplication::doubleClickInterval());
    if (fin < 0 || double_)
        return;
    depuisclic_.start();
    mots_->setText(ligne.left(fin));
    lance();
}

void BlocRecherche::ajouteligne(const QString& ligne) {
    resultat_->addItem(ligne);
    constexpr int image = 16;
    if (depuislignes_.isValid() && !depuislignes_.hasExpired(image))
        return;
    depuislignes_.start();
    resultat_->viewport()->repaint();
}

void BlocRecherche::moveblocrecherche() {
    const int largeur = pixelsFromTwips(DispositionTextes::widthblocrecherche(twipsFromPixels(width())));
    const int gauche = (width() - largeur) / 2;
    constexpr int marge = look::grid + look::grid / 2;
    const int ligne = hauteurligne();
    const int empile =
        etiquette_->sizeHint().height() + look::grid + mots_->sizeHint().height() + look::spacing + ligne + 2 * marge;
    constexpr int champminimal = 160;
    const int libelle = etiquette_->sizeHint().width() + look::spacing;
    const bool large = libelle + champminimal + look::spacing + bouton_->sizeHint().width() <= largeur;
    // Wide and low, as above the text: one line, which in a narrow window does without the label. Narrow, as beside it:
    // one below the other.
    const bool uneligne = large || height() < empile;
    const bool avecresultat = height() - ligne - 3 * look::spacing > 2 * resultat_->fontMetrics().height();
    int haut = uneligne && !avecresultat ? std::max(0, (height() - ligne) / 2) : marge;
    etiquette_->setVisible(large || !uneligne);
    mots_->setPlaceholderText(etiquette_->isHidden() ? mots_->accessibleName() : QString());
    haut = (uneligne ? disposeligne(gauche, haut, largeur) : disposepile(gauche, haut, largeur)) + look::spacing;
    const int reste = DispositionTextes::Heightblocrecherche(height(), haut + look::spacing);
    resultat_->setGeometry(gauche, haut, largeur, reste);
    resultat_->setVisible(avecresultat && reste > resultat_->fontMetrics().height());
}

int BlocRecherche::hauteurligne() const {
    return std::max(mots_->sizeHint().height(), bouton_->sizeHint().height());
}

int BlocRecherche::disposeligne(int gauche, int haut, int largeur) {
    constexpr int champmaximal = 480;
    const int ligne = hauteurligne();
    const int libelle = etiquette_->isHidden() ? 0 : etiquette_->sizeHint().width() + look::spacing;
    const int bouton = std::min(bouton_->sizeHint().width(), largeur / 2);
    etiquette_->setGeometry(gauche, haut, std::max(0, libelle - look::spacing), ligne);
    mots_->setGeometry(gauche + libelle, haut + (ligne - mots_->sizeHint().height()) / 2,
                       std::min(largeur - libelle - bouton - look::spacing, champmaximal), mots_->sizeHint().height());
    bouton_->setGeometry(mots_->geometry().right() + 1 + look::spacing, haut, bouton, ligne);
    return haut + ligne;
}

int BlocRecherche::disposepile(int gauche, int haut, int largeur) {
    const int ligne = hauteurligne();
    const int texte = etiquette_->sizeHint().height();
    const int bouton = bouton_->sizeHint().width();
    etiquette_->setGeometry(gauche, haut, largeur, texte);
    haut += texte + look::grid;
    mots_->setGeometry(gauche, haut, largeur, mots_->sizeHint().height());
    haut += mots_->height() + look::spacing;
    bouton_->setGeometry(gauche + std::max(0, largeur - bouton), haut, std::min(bouton, largeur), ligne);
    return haut + ligne;
}

void BlocRecherche::resizeEvent(QResizeEvent* evenement) {
    QWidget::resizeEvent(evenement);
    moveblocrecherche();
}

void BlocRecherche::changeEvent(QEvent* evenement) {
    QWidget::changeEvent(evenement);
    if (evenement->type() == QEvent::FontChange || evenement->type() == QEvent::StyleChange)
        moveblocrecherche();
}

} // namespace velm
