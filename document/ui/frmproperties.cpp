#include "document/ui/frmproperties.h"

#include "core/cle.h"
#include "core/dates.h"
#include "core/langue.h"
#include "core/texte.h"
#include "document/lecture.h"
#include "document/ui/textelu.h"
#include "platform/base/twips.h"
#include "platform/widgets/look/icons.h"
#include "platform/widgets/look/look.h"
#include "platform/widgets/look/plaintext.h"
#include "platform/widgets/tree/treeview.h"

#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QVBoxLayout>
#include <QWheelEvent>

#include <algorithm>

namespace velm {
namespace {

using namespace Qt::Literals::StringLiterals;

constexpr int hauteurdelarbre = 200;

/// A list of which one entry is read, as a text: it neither opens nor changes.
class ComboLecture final : public QComboBox {
public:
    explicit ComboLecture(QWidget* parent) : QComboBox(parent), lu_(new TexteLu(this)) {
        setFocusPolicy(Qt::NoFocus);
        setFocusProxy(lu_);
        QSizePolicy place(QSizePolicy::Preferred, QSizePolicy::Preferred);
        place.setHeightForWidth(true);
        setSizePolicy(place);
        connect(this, &QComboBox::currentTextChanged, lu_, &TexteLu::montre);
        connect(this, &QComboBox::currentTextChanged, this, &QWidget::updateGeometry);
    }
    QSize sizeHint() const override { return lu_->sizeHint(); }
    QSize minimumSizeHint() const override { return lu_->minimumSizeHint(); }
    int heightForWidth(int largeur) const override { return lu_->heightForWidth(largeur); }
    void showPopup() override {}

protected:
    void paintEvent(QPaintEvent*) override {} // the text inside is all there is to see
    void resizeEvent(QResizeEvent*) override { lu_->setGeometry(rect()); }
    void wheelEvent(QWheelEvent* evenement) override { evenement->ignore(); }
    void keyPressEvent(QKeyEvent* evenement) override { evenement->ignore(); }
    void mousePressEvent(QMouseEvent* evenement) override { evenement->ignore(); }

private:
    TexteLu* lu_;
};

} // namespace

frmproperties::frmproperties(const ContexteProprietes& contexte, QWidget* parent)
    : QDialog(parent), contexte_(contexte),
      arborescence_(contexte.corpus, contexte.parametres, contexte.sablier, contexte.libelle),
      types_(littypesdocument(contexte.corpus)) {
    setObjectName(u"frmproperties"_s);
    setWindowTitle(contexte_.texte(Texte::TitreProprietes));
    construit();
    for (int collection = 0; collection < nombredecollections; ++collection)
        choixtype_->addItem(contexte_.texte(libelledefenetre(collection)));
    combotype_->addItems(types_.combotype);
    numerotype_->addItems(types_.numerotype);
}

void frmproperties::montre(const ContexteProprietes& contexte, Lecture& lecture, QWidget* parent) {
    auto boite = std::make_unique<frmproperties>(contexte, parent);
    boite->setAttribute(Qt::WA_DeleteOnClose);
    boite->afficheproprietes(lecture.cle(), lecture.titrecourant(), lecture.document());
    static_cast<void>(boite.release()); // it goes when it is closed
}

TexteLu* frmproperties::champ(const QString& nom) {
    auto* champ = new TexteLu(this);
    champ->setObjectName(nom);
    return champ;
}

QComboBox* frmproperties::choix(const QString& nom) {
    auto* choix = new ComboLecture(this);
    choix->setObjectName(nom);
    return choix;
}

/// The next line of the page: what it tells, quietly, and the text itself.
void frmproperties::rangee(Texte intitule, QWidget* valeur) {
    QLabel* const libelle = plainLabel(contexte_.texte(intitule), this);
    libelle->setForegroundRole(QPalette::PlaceholderText);
    libelle->setBuddy(valeur);
    valeur->setAccessibleName(libelle->text());
    if (auto* const dedans = valeur->findChild<TexteLu*>())
        dedans->setAccessibleName(libelle->text());
    const int ligne = grille_->rowCount();
    grille_->addWidget(libelle, ligne, 0, Qt::AlignRight | Qt::AlignTop);
    grille_->addWidget(valeur, ligne, 1);
}

void frmproperties::montrerangee(QWidget* valeur, bool montree) {
    int ligne = 0;
    int colonne = 0;
    int etendue = 0;
    grille_->getItemPosition(grille_->indexOf(valeur), &ligne, &colonne, &etendue, &etendue);
    grille_->itemAtPosition(ligne, 0)->widget()->setVisible(montree);
    valeur->setVisible(montree);
}

void frmproperties::met(TexteLu* champ, const QString& valeur) {
    champ->montre(valeur);
    montrerangee(champ, !valeur.isEmpty());
}

QWidget* frmproperties::construitpage() {
    auto* page = new QWidget(this);
    grille_ = new QGridLayout(page);
    grille_->setContentsMargins(0, 0, 0, 0);
    grille_->setHorizontalSpacing(look::windowMargin);
    grille_->setVerticalSpacing(look::grid);
    grille_->setColumnStretch(1, 1);

    titre_ = champ(u"Titre"_s);
    QFont police = titre_->font();
    police.setWeight(QFont::DemiBold);
    titre_->setFont(police);
    rangee(Texte::ProprieteTitre, titre_);
    rangee(Texte::ProprieteCollection, choixtype_ = choix(u"choixtype"_s));
    rangee(Texte::ProprieteTypeDeDocument, combotype_ = choix(u"combotype"_s));
    constexpr std::array motscles{Texte::ProprieteMotCle1, Texte::ProprieteMotCle2, Texte::ProprieteMotCle3};
    for (std::size_t rang = 0; rang < motcle_.size(); ++rang)
        rangee(motscles.at(rang), motcle_.at(rang) = champ(u"motcle"_s));
    rangee(Texte::ProprieteSource, source_ = champ(u"Source"_s));
    rangee(Texte::ProprieteDate, datetext_ = champ(u"datetext"_s));
    rangee(Texte::ProprieteDateDeCreation, datecreation_ = champ(u"datecreation"_s));
    rangee(Texte::ProprieteDateDeModification, datemodif_ = champ(u"datemodif"_s));
    rangee(Texte::ProprieteReference, reference_ = champ(u"référence"_s));
    rangee(Texte::ProprieteNumero, numart_ = champ(u"numart"_s));
    rangee(Texte::ProprieteNumeroDansLeSommaire, numeroarborescence_ = champ(u"numeroarborescence"_s));
    rangee(Texte::ProprietePlaceDansLeSommaire, chemin_ = champ(u"chemin"_s));
    grille_->setRowStretch(grille_->rowCount(), 1);
    return page;
}

void frmproperties::construitarbre() {
    arbre_ = new TreeView(this);
    arbre_->setObjectName(u"TreeView1"_s);
    arbre_->setAccessibleName(contexte_.texte(Texte::ProprietePlaceDansLeSommaire));
    arbre_->setImages(&icon);
    arbre_->hide();
    connect(arbre_, &TreeView::expanding, this, [this](int noeud) { arborescence_.developpe(arbre_->nodes(), noeud); });
    voir_ = new QPushButton(contexte_.texte(Texte::VoirDansLeSommaire), this);
    voir_->setObjectName(u"voirdanslesommaire"_s);
    voir_->setCheckable(true);
    voir_->setAutoDefault(false);
    connect(voir_, &QPushButton::toggled, this, &frmproperties::montrearbre);
}

void frmproperties::construit() {
    zone_ = new QScrollArea(this);
    zone_->setFrameShape(QFrame::NoFrame);
    zone_->setFocusPolicy(Qt::NoFocus);
    zone_->setWidgetResizable(true);
    zone_->setWidget(construitpage());
    numerotype_ = new QListWidget(this);
    numerotype_->setObjectName(u"numerotype"_s);
    numerotype_->hide();
    construitarbre();
    fermer_ = new QPushButton(contexte_.texte(Texte::ProprietesFermer), this);
    fermer_->setObjectName(u"Command2"_s);
    fermer_->setDefault(true);
    connect(fermer_, &QPushButton::clicked, this, &QDialog::close);

    auto* pied = new QHBoxLayout;
    pied->setSpacing(look::spacing);
    pied->addWidget(voir_);
    pied->addStretch();
    pied->addWidget(fermer_);
    auto* disposition = new QVBoxLayout(this);
    disposition->setContentsMargins(look::windowMargin, look::windowMargin, look::windowMargin, look::windowMargin);
    disposition->setSpacing(look::groupSpacing);
    disposition->addWidget(zone_);
    disposition->addWidget(arbre_);
    disposition->addLayout(pied);
}

/// As high as the page is with all its lines at the width that the dialog has, and what stands below it.
int frmproperties::hauteurdelapage() const {
    const int large = width() - 2 * look::windowMargin;
    return zone_->widget()->heightForWidth(large) + look::groupSpacing + fermer_->sizeHint().height() +
           2 * look::windowMargin;
}

void frmproperties::restauretaille() {
    const TailleProprietes lue = littailleproprietes(contexte_.reglages);
    const int largeur = pixelsFromTwips(lue.largeur);
    const int hauteur = pixelsFromTwips(lue.hauteur);
    constexpr int premierelargeur = 640;
    // The frame around it, which nobody knows before it is shown, must stand on the screen as well.
    constexpr QSize cadre(2 * look::windowMargin, 4 * look::windowMargin);
    const QSize ecran = screen()->availableSize() - cadre;
    const auto taille = [&](int haute) {
        return QSize(largeur > 0 ? largeur : premierelargeur, haute).boundedTo(ecran).expandedTo(minimumSizeHint());
    };
    resize(taille(height()));
    resize(taille(hauteurdelapage()));
    hauteurproposee_ = height();
    if (hauteur > 0)
        resize(taille(hauteur));
}

/// The dialog grows by the tree, as far as the screen allows, and shrinks again.
void frmproperties::montrearbre(bool montre) {
    const int dessous = hauteurdelarbre + look::groupSpacing;
    const int ecran = screen()->availableGeometry().bottom() - y() - (frameGeometry().height() - height());
    const int avant = height();
    // Both keep their share where the screen has no room for all.
    auto* const pile = static_cast<QVBoxLayout*>(layout());
    pile->setStretchFactor(zone_, zone_->height());
    pile->setStretchFactor(arbre_, hauteurdelarbre);
    arbre_->setVisible(montre);
    resize(width(), montre ? std::max(avant, std::min(avant + dessous, ecran))
                           : std::max(avant - dessous, std::min(avant, hauteurproposee_)));
    pile->activate();
    if (montre)
        arbre_->ensureVisible(arbre_->nodes().selected());
}

void frmproperties::afficheproprietes(const Cle& cle, const QString& titrecourant, const DocumentAffiche& document) {
    proprietes_ = velm::afficheproprietes(cle, titrecourant, document, types_);
    const auto date = [this](const QString& stockee) { return dateecrite(stockee, contexte_.texte); };
    met(reference_, proprietes_.reference);
    met(numart_, proprietes_.numart);
    met(titre_, proprietes_.Titre);
    for (std::size_t rang = 0; rang < motcle_.size(); ++rang)
        met(motcle_.at(rang), proprietes_.motcle.at(rang));
    met(source_, proprietes_.Source);
    met(datetext_, date(proprietes_.datetext));
    met(datecreation_, date(proprietes_.datecreation));
    met(datemodif_, date(proprietes_.datemodif));
    combotype_->setCurrentIndex(proprietes_.combotype);
    montrerangee(combotype_, proprietes_.combotype >= 0);
    choixtype_->setCurrentIndex(proprietes_.choixtype);
    montrerangee(choixtype_, true);
    met(numeroarborescence_, proprietes_.numeroarborescence);
    montrearborescence(arborescence_, arbre_->nodes(), proprietes_);
    met(chemin_, placedanslesommaire(arbre_->nodes(), contexte_.texte));
    restauretaille();
    setWindowModality(Qt::ApplicationModal);
    show();
}

void frmproperties::showEvent(QShowEvent* evenement) {
    QDialog::showEvent(evenement);
    if (!evenement->spontaneous())
        fermer_->setFocus();
}

void frmproperties::hideEvent(QHideEvent* evenement) {
    if (!evenement->spontaneous()) {
        // A height that nobody has changed is left to the next document.
        voir_->setChecked(false);
        const int hauteur = height() == hauteurproposee_ ? 0 : height();
        ecrittailleproprietes(contexte_.reglages, {twipsFromPixels(width()), twipsFromPixels(hauteur)});
    }
    QDialog::hideEvent(evenement);
}

} // namespace velm
