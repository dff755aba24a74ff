#include "document/ui/frmproperties.h"

#include "core/cle.h"
#include "core/texte.h"
#include "document/lecture.h"
#include "platform/base/twips.h"
#include "platform/widgets/look/icons.h"
#include "platform/widgets/look/look.h"
#include "platform/widgets/look/plaintext.h"
#include "platform/widgets/tree/treeview.h"

#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QScreen>
#include <QWheelEvent>

#include <algorithm>

namespace velm {
namespace {

constexpr std::array textesdesmotscles{Texte::ProprieteMotCle1, Texte::ProprieteMotCle2, Texte::ProprieteMotCle3};

using namespace Qt::Literals::StringLiterals;

/// A field that shows its text and lets it be selected.
void lecture(QLineEdit& champ) {
    champ.setReadOnly(true);
    champ.setCursorPosition(0);
}

/// A list of which one entry is shown, as a field: it neither opens nor changes.
class ComboLecture final : public QComboBox {
public:
    explicit ComboLecture(QWidget* parent) : QComboBox(parent) {
        setEditable(true);
        setInsertPolicy(NoInsert);
        setFocusPolicy(Qt::NoFocus);
        lecture(*lineEdit());
        lineEdit()->setFrame(true);
        lineEdit()->setFocusPolicy(Qt::StrongFocus);
        lineEdit()->installEventFilter(this);
        setCompleter(nullptr);
        setContextMenuPolicy(Qt::PreventContextMenu);
    }
    void showPopup() override {}

protected:
    void paintEvent(QPaintEvent*) override {} // the field inside is all there is to see
    void resizeEvent(QResizeEvent*) override { lineEdit()->setGeometry(rect()); }
    void wheelEvent(QWheelEvent* evenement) override { evenement->ignore(); }
    void keyPressEvent(QKeyEvent* evenement) override { evenement->ignore(); }
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
    restauretaille();
}

void frmproperties::montre(const ContexteProprietes& contexte, Lecture& lecture, QWidget* parent) {
    auto boite = std::make_unique<frmproperties>(contexte, parent);
    boite->setAttribute(Qt::WA_DeleteOnClose);
    boite->afficheproprietes(lecture.cle(), lecture.titrecourant(), lecture.document());
    static_cast<void>(boite.release()); // it goes when it is closed
}

QLineEdit* frmproperties::champ(const QString& nom, Texte intitule) {
    auto* champ = new QLineEdit(this);
    champ->setObjectName(nom);
    champ->setAccessibleName(contexte_.texte(intitule));
    lecture(*champ);
    return champ;
}

QComboBox* frmproperties::choix(const QString& nom, Texte intitule) {
    auto* choix = new ComboLecture(this);
    choix->setObjectName(nom);
    choix->setAccessibleName(contexte_.texte(intitule));
    choix->lineEdit()->setAccessibleName(contexte_.texte(intitule));
    return choix;
}

void frmproperties::construit() {
    reference_ = champ(u"référence"_s, Texte::ProprieteReference);
    numart_ = champ(u"numart"_s, Texte::ProprieteNumero);
    titre_ = champ(u"Titre"_s, Texte::ProprieteTitre);
    for (std::size_t rang = 0; rang < motcle_.size(); ++rang)
        motcle_.at(rang) = champ(u"motcle"_s, textesdesmotscles.at(rang));
    source_ = champ(u"Source"_s, Texte::ProprieteSource);
    datetext_ = champ(u"datetext"_s, Texte::ProprieteDate);
    datecreation_ = champ(u"datecreation"_s, Texte::ProprieteDateDeCreation);
    datemodif_ = champ(u"datemodif"_s, Texte::ProprieteDateDeModification);
    choixtype_ = choix(u"choixtype"_s, Texte::ProprieteCollection);
    combotype_ = choix(u"combotype"_s, Texte::ProprieteTypeDeDocument);
    numerotype_ = new QListWidget(this);
    numerotype_->setObjectName(u"numerotype"_s);
    numerotype_->hide();
    numeroarborescence_ = champ(u"numeroarborescence"_s, Texte::ProprieteNumeroDansLeSommaire);
    arbre_ = new TreeView(this);
    arbre_->setObjectName(u"TreeView1"_s);
    arbre_->setAccessibleName(contexte_.texte(Texte::ProprietePlaceDansLeSommaire));
    arbre_->setImages(&icon);
    connect(arbre_, &TreeView::expanding, this, [this](int noeud) { arborescence_.developpe(arbre_->nodes(), noeud); });
    fermer_ = new QPushButton(contexte_.texte(Texte::ProprietesFermer), this);
    fermer_->setObjectName(u"Command2"_s);
    fermer_->setDefault(true);
    connect(fermer_, &QPushButton::clicked, this, &QDialog::close);

    // Two columns of labels with their fields, parted by an empty one; long texts take both.
    constexpr int derniere = 4;
    auto* grille = new QGridLayout(this);
    grille->setContentsMargins(look::windowMargin, look::windowMargin, look::windowMargin, look::windowMargin);
    grille->setHorizontalSpacing(look::spacing);
    grille->setVerticalSpacing(look::spacing);
    int rangee = 0;
    const auto etiquette = [this, grille](Texte intitule, QWidget* nomme, int ou, int colonne) {
        auto* libelle = plainLabel(contexte_.texte(intitule), this);
        libelle->setBuddy(nomme);
        grille->addWidget(libelle, ou, colonne, Qt::AlignLeft | Qt::AlignVCenter);
    };
    const auto entiere = [&](Texte intitule, QWidget* controle) {
        etiquette(intitule, controle, rangee, 0);
        grille->addWidget(controle, rangee++, 1, 1, derniere);
    };
    const auto paire = [&](Texte intitule, QWidget* gauche, Texte autreintitule, QWidget* droite) {
        etiquette(intitule, gauche, rangee, 0);
        grille->addWidget(gauche, rangee, 1);
        etiquette(autreintitule, droite, rangee, 3);
        grille->addWidget(droite, rangee++, derniere);
    };
    paire(Texte::ProprieteReference, reference_, Texte::ProprieteNumero, numart_);
    entiere(Texte::ProprieteTitre, titre_);
    for (std::size_t rang = 0; rang < motcle_.size(); ++rang)
        entiere(textesdesmotscles.at(rang), motcle_.at(rang));
    entiere(Texte::ProprieteSource, source_);
    entiere(Texte::ProprieteDate, datetext_);
    paire(Texte::ProprieteDateDeCreation, datecreation_, Texte::ProprieteDateDeModification, datemodif_);
    entiere(Texte::ProprieteCollection, choixtype_);
    entiere(Texte::ProprieteTypeDeDocument, combotype_);
    entiere(Texte::ProprieteNumeroDansLeSommaire, numeroarborescence_);
    auto* libellearbre = plainLabel(contexte_.texte(Texte::ProprietePlaceDansLeSommaire), this);
    libellearbre->setBuddy(arbre_);
    grille->addWidget(libellearbre, rangee, 0, Qt::AlignLeft | Qt::AlignTop);
    grille->addWidget(arbre_, rangee, 1, 1, derniere);
    grille->setRowStretch(rangee++, 1);
    grille->setColumnStretch(1, 1);
    grille->setColumnStretch(derniere, 1);
    grille->setRowMinimumHeight(rangee++, look::groupSpacing - 2 * look::spacing);
    grille->addWidget(fermer_, rangee, 0, 1, derniere + 1, Qt::AlignRight);
}

void frmproperties::restauretaille() {
    const TailleProprietes lue = littailleproprietes(contexte_.reglages);
    const int largeur = pixelsFromTwips(lue.largeur);
    const int hauteur = pixelsFromTwips(lue.hauteur);
    constexpr QSize premiere(620, 640);
    // The frame around it, which nobody knows before it is shown, must stand on the screen as well.
    constexpr QSize cadre(2 * look::windowMargin, 4 * look::windowMargin);
    const QSize ecran = screen()->availableSize() - cadre;
    const QSize voulue(largeur > 0 ? largeur : premiere.width(), hauteur > 0 ? hauteur : premiere.height());
    resize(voulue.boundedTo(ecran).expandedTo(minimumSizeHint()));
}

void frmproperties::afficheproprietes(const Cle& cle, const QString& titrecourant, const DocumentAffiche& document) {
    proprietes_ = velm::afficheproprietes(cle, titrecourant, document, types_);
    const auto met = [](QLineEdit* champ, const QString& texte) {
        champ->setText(texte);
        champ->setToolTip(plainTip(texte));
        champ->setCursorPosition(0);
    };
    met(reference_, proprietes_.reference);
    met(numart_, proprietes_.numart);
    met(titre_, proprietes_.Titre);
    for (std::size_t rang = 0; rang < motcle_.size(); ++rang)
        met(motcle_.at(rang), proprietes_.motcle.at(rang));
    met(source_, proprietes_.Source);
    met(datetext_, proprietes_.datetext);
    met(datecreation_, proprietes_.datecreation);
    met(datemodif_, proprietes_.datemodif);
    combotype_->setCurrentIndex(proprietes_.combotype);
    choixtype_->setCurrentIndex(proprietes_.choixtype);
    met(numeroarborescence_, proprietes_.numeroarborescence);
    setWindowModality(Qt::ApplicationModal);
    show();
}

void frmproperties::showEvent(QShowEvent* evenement) {
    QDialog::showEvent(evenement);
    if (evenement->spontaneous())
        return;
    montrearborescence(arborescence_, arbre_->nodes(), proprietes_);
    if (arbre_->nodes().selected() != 0)
        arbre_->ensureVisible(arbre_->nodes().selected());
    fermer_->setFocus();
}

void frmproperties::hideEvent(QHideEvent* evenement) {
    if (!evenement->spontaneous())
        ecrittailleproprietes(contexte_.reglages, {twipsFromPixels(width()), twipsFromPixels(height())});
    QDialog::hideEvent(evenement);
}

} // namespace velm
