#include "document/ui/blocrecherche.h"

#include "core/texte.h"
#include "document/dispositiontextes.h"
#include "document/ui/etiquette.h"
#include "platform/base/twips.h"
#include "platform/widgets/look/look.h"
#include "platform/widgets/look/noteline.h"
#include "platform/widgets/text/linelist.h"

#include <QApplication>
#include <QEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>

#include <algorithm>

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int champminimal = 160;
constexpr int notelisible = 240;
constexpr int marge = look::grid + look::grid / 2;

} // namespace

BlocRecherche::BlocRecherche(const Libelles& texte, QWidget* fenetre)
    : QWidget(fenetre), etiquette_(new Etiquette(texte(Texte::MotsDansLaCollection), this)), mots_(new QLineEdit(this)),
      bouton_(new QPushButton(texte(Texte::ChercherDansLaCollection), this)), note_(new NoteLine(this)),
      resultat_(new LineList(this)), toutafficher_(texte(Texte::BilanToutAfficher)) {
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
    connect(bouton_, &QPushButton::clicked, this, [this] { lance(mots_->text()); });
    connect(mots_, &QLineEdit::returnPressed, this, [this] { lance(mots_->text()); });
    connect(mots_, &QLineEdit::textEdited, this, [this] { dit({}); });
    connect(note_, &NoteLine::linkClicked, this, [this] { lance(cherches_, true); });
    for (const auto choix : {&QListWidget::itemClicked, &QListWidget::itemActivated}) {
        connect(resultat_, choix, this, [this](const QListWidgetItem* ligne) {
            if (ligne)
                reprend(ligne->text());
        });
    }
}

void BlocRecherche::lance(const QString& mots, bool tous) {
    cherches_ = mots;
    resultat_->clear();
    dit({});
    emit recherche(mots, tous);
}

void BlocRecherche::dit(const BilanRecherche& bilan) {
    note_->say(bilan.phrase, bilan.rien ? NoteLine::Tone::Warning : NoteLine::Tone::Quiet,
               bilan.coupe ? toutafficher_ : QString());
    emit change();
    moveblocrecherche();
}

void BlocRecherche::reprend(const QString& ligne) {
    const qsizetype fin = ligne.indexOf(u" :"_s);
    // The second half of a double click would fall on the lines of the search that the first one has begun.
    const bool secondclic = depuisclic_.isValid() && !depuisclic_.hasExpired(QApplication::doubleClickInterval());
    if (fin < 0 || secondclic)
        return;
    depuisclic_.start();
    mots_->setText(ligne.left(fin));
    lance(mots_->text());
}

void BlocRecherche::ajouteligne(const QString& ligne) {
    resultat_->addItem(ligne);
    constexpr int image = 16;
    if (depuislignes_.isValid() && !depuislignes_.hasExpired(image) && resultat_->count() > 1)
        return;
    depuislignes_.start();
    emit change();
    moveblocrecherche();
    resultat_->viewport()->repaint();
}

int BlocRecherche::hauteurvoulue() const {
    if (resultat_->count() == 0)
        return 0;
    const int note = note_->isHidden() ? 0 : note_->heightForWidth(largeurdesparties()) + look::spacing;
    const int tout = marge + hauteurligne() + look::spacing + note + hauteurresultat() + look::spacing;
    return std::max(tout, hauteuravecresultat() + 1);
}

/// A block that is higher than this has room for its result.
int BlocRecherche::hauteuravecresultat() const {
    return hauteurligne() + 3 * look::spacing + 2 * resultat_->fontMetrics().height();
}

void BlocRecherche::moveblocrecherche() {
    const int largeur = largeurdesparties();
    const int gauche = (width() - largeur) / 2;
    const int ligne = hauteurligne();
    const int empile =
        etiquette_->sizeHint().height() + look::grid + mots_->sizeHint().height() + look::spacing + ligne + 2 * marge;
    const int libelle = etiquette_->sizeHint().width() + look::spacing;
    const int note = notedessous(marge + ligne) ? 0 : look::groupSpacing + notelisible;
    const bool large = libelle + champminimal + look::spacing + bouton_->sizeHint().width() + note <= largeur;
    // Wide and low, as above the text: one line, which in a narrow window does without the label. Narrow, as beside it:
    // one below the other.
    const bool uneligne = large || height() < empile;
    const bool avecresultat = height() > hauteuravecresultat();
    int haut = !avecresultat ? std::max(0, (height() - ligne) / 2) : marge;
    etiquette_->setVisible(large || (!uneligne && etiquette_->sizeHint().width() <= largeur));
    haut = (uneligne ? disposeligne(gauche, haut, largeur) : disposepile(gauche, haut, largeur)) + look::spacing;
    mots_->setPlaceholderText(uneligne && !large ? mots_->accessibleName() : QString());
    haut = disposenote(gauche, haut, largeur);
    const int reste = Heightblocrecherche(height(), haut + look::spacing);
    resultat_->setGeometry(gauche, haut, largeur, std::min(reste, hauteurresultat()));
    resultat_->setVisible(avecresultat && reste > resultat_->fontMetrics().height() && resultat_->count() > 0);
}

/// The height that the lines of the result take.
int BlocRecherche::hauteurresultat() const {
    const int pas = resultat_->sizeHintForRow(0) + 2 * resultat_->spacing();
    return resultat_->count() * pas + 2 * resultat_->frameWidth();
}

/// What came of the search stands below the box; in a block that is too low for that, behind the button. Returns where
/// what lies below begins.
int BlocRecherche::disposenote(int gauche, int haut, int largeur) {
    const int hauteur = note_->heightForWidth(largeur);
    if (haut + hauteur <= height()) {
        note_->setGeometry(gauche, haut, largeur, hauteur);
        return hauteur > 0 ? haut + hauteur + look::spacing : haut;
    }
    const int debut = bouton_->geometry().right() + 1 + look::groupSpacing;
    const int place = std::max(gauche + largeur - debut, 0);
    const int ici = std::min(note_->heightForWidth(place), height());
    note_->setGeometry(debut, std::max(bouton_->geometry().center().y() - ici / 2, 0), place, ici);
    return haut;
}

/// What came of the search can be said below the field that ends at `fin`, or there is nothing to say.
bool BlocRecherche::notedessous(int fin) const {
    return note_->isHidden() || fin + look::spacing + note_->heightForWidth(largeurdesparties()) <= height();
}

int BlocRecherche::largeurdesparties() const {
    return pixelsFromTwips(widthblocrecherche(twipsFromPixels(width())));
}

int BlocRecherche::hauteurligne() const {
    return std::max(mots_->sizeHint().height(), bouton_->sizeHint().height());
}

int BlocRecherche::disposeligne(int gauche, int haut, int largeur) {
    constexpr int champmaximal = 480;
    const int ligne = hauteurligne();
    const int note = notedessous(haut + ligne) ? 0 : notelisible;
    const int libelle = etiquette_->isHidden() ? 0 : etiquette_->sizeHint().width() + look::spacing;
    const int bouton = std::min(bouton_->sizeHint().width(), largeur / 2);
    etiquette_->setGeometry(gauche, haut, std::max(0, libelle - look::spacing), ligne);
    const int champ = largeur - libelle - bouton - look::spacing;
    mots_->setGeometry(gauche + libelle, haut + (ligne - mots_->sizeHint().height()) / 2,
                       std::min({champ, champmaximal, std::max(champ - note, champminimal)}),
                       mots_->sizeHint().height());
    bouton_->setGeometry(mots_->geometry().right() + 1 + look::spacing, haut, bouton, ligne);
    return haut + ligne;
}

int BlocRecherche::disposepile(int gauche, int haut, int largeur) {
    const int ligne = hauteurligne();
    const int texte = etiquette_->sizeHint().height();
    const int bouton = bouton_->sizeHint().width();
    etiquette_->setGeometry(gauche, haut, largeur, texte);
    if (!etiquette_->isHidden())
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
