#include "document/ui/couverture.h"

#include "core/langue.h"
#include "core/nombres.h"
#include "core/texte.h"
#include "document/ui/boutonlien.h"
#include "document/ui/contextetextes.h"
#include "platform/widgets/look/focusring.h"
#include "platform/widgets/look/icons.h"
#include "platform/widgets/look/look.h"
#include "platform/widgets/look/plaintext.h"

#include <QAbstractScrollArea>
#include <QEvent>
#include <QLabel>
#include <QPainter>

#include <algorithm>

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int coteimage = 48;
constexpr int pointsdunom = 20;
constexpr int largeurmaximale = 480;
/// The sheet is light whatever lies around it.
constexpr look::Theme themedufeuillet = look::Theme::Light;

QString compte(qint64 nombre, const ContexteTextes& contexte) {
    if (nombre == 0)
        return contexte.texte(Texte::CouvertureSansDocument);
    if (nombre == 1)
        return contexte.texte(Texte::CouvertureUnDocument);
    return remplace(contexte.texte(Texte::CouvertureDocuments), {nombreecrit(nombre, contexte.lecture.texte)});
}

QLabel* etiquette(const QString& texte, QWidget* parent) {
    QLabel* nouvelle = plainLabel(texte, parent);
    nouvelle->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
    nouvelle->setWordWrap(true);
    return nouvelle;
}

} // namespace

Couverture::Couverture(int indice, const ContexteTextes& contexte, QAbstractScrollArea& vue)
    : QWidget(&vue), vue_(vue), ascenseur_(vue.verticalScrollBarPolicy()),
      image_(iconIn(u"collection%1"_s.arg(indice), themedufeuillet)),
      nom_(etiquette(contexte.lecture.libelle(indice), this)), nombre_(etiquette({}, this)) {
    setObjectName(u"couverture"_s);
    setAccessibleName(nom_->text());
    setPalette(look::palette(themedufeuillet));
    const qint64 nombre = contexte.lecture.corpus.nombrededocuments(typedindice(indice));
    nombre_->setText(compte(nombre, contexte));
    nombre_->setForegroundRole(QPalette::PlaceholderText);
    if (nombre > 0) {
        ajoutelien(Bloc::Arbre, u"couverturesommaire"_s, u"arbre"_s, contexte.texte(Texte::CouvertureSommaire));
        ajoutelien(Bloc::Liste, u"couvertureliste"_s, u"tableau"_s, contexte.texte(Texte::CouvertureListe));
        ajoutelien(Bloc::Recherche, u"couverturerecherche"_s, u"recherchedico"_s,
                   contexte.texte(Texte::CouvertureRecherche));
    }
    prendfocus();
    vue.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff); // nothing is to be read below
    habille();
    vue.viewport()->installEventFilter(this);
    setGeometry(vue.viewport()->geometry());
    show();
}

void Couverture::ajoutelien(Bloc bloc, const QString& nom, const QString& image, const QString& texte) {
    auto* lien = new BoutonLien(iconIn(image, themedufeuillet), texte, this);
    lien->setObjectName(nom);
    connect(lien, &BoutonLien::clicked, this, [this, bloc] { emit voulu(bloc); });
    liens_ << lien;
}

/// The links have the place of the view in the walk of the Tab key.
void Couverture::prendfocus() {
    QWidget* avant = &vue_;
    for (BoutonLien* lien : std::as_const(liens_)) {
        setTabOrder(avant, lien);
        avant = lien;
    }
    FocusRing::leave(*this); // without a link there is nothing to press
    const bool ici = window()->focusWidget() == &vue_;
    vue_.setFocusProxy(liens_.isEmpty() ? static_cast<QWidget*>(this) : liens_.front());
    if (ici)
        vue_.setFocus();
}

void Couverture::quitte() {
    const QWidget* celui = window()->focusWidget();
    const bool ici = celui && isAncestorOf(celui);
    vue_.setFocusProxy(nullptr);
    vue_.setVerticalScrollBarPolicy(ascenseur_);
    if (ici)
        vue_.setFocus();
    hide();
}

/// The fonts of the labels, made of that of the window.
void Couverture::habille() {
    QFont grande = font();
    grande.setPointSize(pointsdunom);
    grande.setWeight(QFont::DemiBold);
    nom_->setFont(grande);
    dispose();
}

/// One below the other, where the eye has the middle of lines of unequal length. Where there is too little height the
/// links stay, then the name.
void Couverture::dispose() {
    int largeur = 0;
    int somme = 0;
    int hauteur = 0;
    for (const BoutonLien* lien : std::as_const(liens_)) {
        const QSize taille = lien->sizeHint();
        largeur = std::max(largeur, taille.width());
        somme += taille.width();
        hauteur += taille.height() + look::grid;
    }
    const int moyenne = liens_.isEmpty() ? 0 : somme / static_cast<int>(liens_.size());
    const int gauche = std::max(0, std::min((width() - (largeur + moyenne) / 2) / 2, width() - largeur));
    int haut = placelibelles(hauteur);
    for (BoutonLien* lien : std::as_const(liens_)) {
        const QSize taille = lien->sizeHint();
        lien->setGeometry(gauche, haut, std::min(taille.width(), width() - gauche), taille.height());
        haut += taille.height() + look::grid;
    }
}

/// Picture, name and number above the links; returns where these begin.
int Couverture::placelibelles(int hauteurdesliens) {
    const int largeur = std::clamp(width() - 2 * look::groupSpacing, 0, largeurmaximale);
    const int nom = nom_->heightForWidth(largeur) + look::grid;
    const int nombre = nombre_->heightForWidth(largeur) + look::groupSpacing + look::spacing;
    const int image = coteimage + look::groupSpacing;
    const bool avecnom = largeur > coteimage && hauteurdesliens + nom <= height();
    const bool avecnombre = avecnom && hauteurdesliens + nom + nombre <= height();
    const bool avecimage = avecnombre && hauteurdesliens + nom + nombre + image <= height();
    const int tout = hauteurdesliens + (avecnom ? nom : 0) + (avecnombre ? nombre : 0) + (avecimage ? image : 0);
    int haut = std::max(0, (height() - tout) / 3);
    placeimage_ = avecimage ? QRect((width() - coteimage) / 2, haut, coteimage, coteimage) : QRect();
    haut += avecimage ? image : 0;
    nom_->setVisible(avecnom);
    nom_->setGeometry((width() - largeur) / 2, haut, largeur, nom - look::grid);
    haut += avecnom ? nom : 0;
    nombre_->setVisible(avecnombre);
    nombre_->setGeometry((width() - largeur) / 2, haut, largeur, nombre_->heightForWidth(largeur));
    return haut + (avecnombre ? nombre : 0);
}

void Couverture::paintEvent(QPaintEvent*) {
    QPainter peintre(this);
    image_.paint(&peintre, placeimage_);
}

void Couverture::resizeEvent(QResizeEvent* evenement) {
    QWidget::resizeEvent(evenement);
    dispose();
}

void Couverture::changeEvent(QEvent* evenement) {
    QWidget::changeEvent(evenement);
    if (evenement->type() == QEvent::FontChange)
        habille();
}

bool Couverture::eventFilter(QObject* objet, QEvent* evenement) {
    if (evenement->type() == QEvent::Resize || evenement->type() == QEvent::Move)
        setGeometry(vue_.viewport()->geometry());
    return QWidget::eventFilter(objet, evenement);
}

} // namespace velm
