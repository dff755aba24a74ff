#include "document/ui/frmfindform.h"

#include "core/langue.h"
#include "core/nombres.h"
#include "core/texte.h"
#include "document/placelibre.h"
#include "platform/widgets/look/look.h"
#include "platform/widgets/look/plaintext.h"
#include "platform/widgets/text/richtextbox.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int largeurchamp = 320;
constexpr auto titredesmessages = Texte::TitreRechercheDansLeDocument;

template <typename T>
T* nomme(T* controle, const char* nom) {
    controle->setObjectName(QString::fromLatin1(nom));
    return controle;
}

/// The box of the text that is looked for; at its right end it says what came of it.
class ChampCherche final : public QLineEdit {
public:
    explicit ChampCherche(QWidget* parent) : QLineEdit(parent), etat_(nomme(plainLabel(QString(), this), "lblEtat")) {
        setClearButtonEnabled(true);
        etat_->setAttribute(Qt::WA_TransparentForMouseEvents);
        etat_->setForegroundRole(QPalette::WindowText); // dit() sets its colour; the box's own is that of its text
    }
    void dit(const QString& texte, const QPalette& teinte) {
        etat_->setText(texte);
        etat_->setPalette(teinte);
        place();
    }

protected:
    void resizeEvent(QResizeEvent* evenement) override {
        QLineEdit::resizeEvent(evenement);
        place();
    }

private:
    /// Beside the button that empties the box; what is typed ends before it.
    void place() {
        const auto* vide = findChild<QToolButton*>();
        const QSize large(etat_->text().isEmpty() ? 0 : etat_->sizeHint().width(), etat_->sizeHint().height());
        etat_->setGeometry(vide->x() - look::grid - large.width(), (height() - large.height()) / 2, large.width(),
                           large.height());
        setTextMargins(0, 0, large.width() > 0 ? large.width() + look::spacing : 0, 0);
    }

    QLabel* etat_;
};

QRect surlecran(const QWidget& widget, const QRect& place) {
    return place.isNull() ? QRect() : QRect(widget.mapToGlobal(place.topLeft()), place.size());
}

Surface surface(RichTextBox& vue) {
    const QWidget& ici = *vue.viewport();
    Surface surface{vue.screen()->availableGeometry(), surlecran(ici, ici.rect()), {}, {}};
    const SeenHits seen = vue.seenHits();
    surface.courante = surlecran(ici, seen.current);
    for (const QRect& autre : seen.others)
        surface.autres.push_back(surlecran(ici, autre));
    return surface;
}

} // namespace

frmFindForm::frmFindForm(const Libelles& texte, Dialogues& dialogues, std::function<Cible()> active, QWidget* parent)
    : QDialog(parent), texte_(texte), dialogues_(dialogues), active_(std::move(active)) {
    setObjectName(u"frmFindForm"_s);
    setWindowTitle(texte_(Texte::TitreChercher));
    setModal(false);
    construit();
}

void frmFindForm::construit() {
    txtFind_ = nomme(new ChampCherche(this), "txtFind");
    txtFind_->setMinimumWidth(largeurchamp);
    auto* etiquette = plainLabel(texte_(Texte::TexteARechercher), this);
    etiquette->setBuddy(txtFind_);
    txtFind_->setAccessibleName(texte_(Texte::TexteARechercher));
    checkmot_ = nomme(new QCheckBox(texte_(Texte::ChercherMotEntier), this), "checkmot");
    checkcasse_ = nomme(new QCheckBox(texte_(Texte::ChercherAvecMajuscules), this), "checkcasse");
    cmdFindPrevious_ = nomme(new QPushButton(texte_(Texte::ChercherPrecedent), this), "cmdFindPrevious");
    cmdFindPrevious_->setAutoDefault(false);
    cmdFindNext_ = nomme(new QPushButton(texte_(Texte::ChercherSuivant), this), "cmdFindNext");
    cmdFindNext_->setDefault(true);
    for (QPushButton* pas : {cmdFindPrevious_, cmdFindNext_})
        pas->setEnabled(false);
    auto* fermer = nomme(new QPushButton(texte_(Texte::ChercherFermer), this), "cmdCancel");
    fermer->setAutoDefault(false);
    dispose(etiquette, fermer);
    relie(fermer);
}

void frmFindForm::dispose(QLabel* etiquette, QPushButton* fermer) {
    auto* boutons = new QHBoxLayout;
    boutons->setSpacing(look::spacing);
    boutons->addStretch(1);
    for (QPushButton* bouton : {cmdFindPrevious_, cmdFindNext_, fermer})
        boutons->addWidget(bouton);
    auto* colonne = new QVBoxLayout(this);
    colonne->setContentsMargins(look::windowMargin, look::windowMargin, look::windowMargin, look::windowMargin);
    colonne->setSpacing(look::spacing);
    colonne->addWidget(etiquette);
    colonne->addWidget(txtFind_);
    colonne->addWidget(checkmot_);
    colonne->addWidget(checkcasse_);
    colonne->addSpacing(look::spacing);
    colonne->addLayout(boutons);
    colonne->setSizeConstraint(QLayout::SetFixedSize);
}

void frmFindForm::relie(QPushButton* fermer) {
    connect(txtFind_, &QLineEdit::textChanged, this, [this](const QString& texte) {
        cmdFindNext_->setEnabled(!texte.isEmpty());
        cmdFindPrevious_->setEnabled(!texte.isEmpty());
        quittetrouve();
        recherche_.recommence();
        actualise();
    });
    for (const QCheckBox* coche : {checkmot_, checkcasse_})
        connect(coche, &QCheckBox::toggled, this, &frmFindForm::actualise);
    connect(cmdFindNext_, &QPushButton::clicked, this, &frmFindForm::suivant);
    connect(cmdFindPrevious_, &QPushButton::clicked, this, &frmFindForm::precedent);
    connect(fermer, &QPushButton::clicked, this, &frmFindForm::reject);
}

void frmFindForm::montre(const QString& propose) {
    if (!propose.isEmpty())
        txtFind_->setText(propose);
    const bool neuve = !testAttribute(Qt::WA_Moved);
    const Cible cible = active_();
    if (neuve && cible.vue) {
        ensurePolished();
        adjustSize();
        move(premiereplace(sizeHint(), surface(*cible.vue)));
    }
    show();
    raise();
    activateWindow();
    txtFind_->setFocus();
    txtFind_->selectAll();
}

// Comes too when the whole program is restored from an icon.
void frmFindForm::showEvent(QShowEvent* evenement) {
    QDialog::showEvent(evenement);
    actualise();
}

void frmFindForm::hideEvent(QHideEvent* evenement) {
    QDialog::hideEvent(evenement);
    suit(nullptr);
}

void frmFindForm::keyPressEvent(QKeyEvent* evenement) {
    const bool entree = evenement->key() == Qt::Key_Return || evenement->key() == Qt::Key_Enter;
    const bool arriere = evenement->modifiers().testFlag(Qt::ShiftModifier);
    if (entree || evenement->key() == Qt::Key_F3)
        (arriere ? cmdFindPrevious_ : cmdFindNext_)->click();
    else
        QDialog::keyPressEvent(evenement);
}

// ---- what it shows of what it finds

int frmFindForm::options() const {
    return RechercheTexte::options(checkmot_->isChecked(), checkcasse_->isChecked());
}

void frmFindForm::suit(RichTextBox* vue) {
    if (vue == vue_)
        return;
    if (vue_) {
        disconnect(vue_, nullptr, this, nullptr);
        vue_->setHits(HitKind::Text, {});
    }
    vue_ = vue;
    if (vue_)
        connect(vue_, &RichTextBox::contentReplaced, this, &frmFindForm::actualise);
}

void frmFindForm::actualise() {
    suit(isVisible() ? active_().vue : nullptr);
    occurrences_.clear();
    if (vue_)
        occurrences_ = occurrencesde(vue_->control().richText(), txtFind_->text(), options());
    if (vue_) {
        std::vector<HitRange> plages;
        plages.reserve(occurrences_.size());
        for (const qsizetype debut : occurrences_)
            plages.push_back({debut, debut + txtFind_->text().size()});
        vue_->setHits(HitKind::Text, std::move(plages));
    }
    montreetat();
}

void frmFindForm::montreetat() {
    const auto nombre = static_cast<qsizetype>(occurrences_.size());
    const auto ici = std::ranges::find(occurrences_, recherche_.derniere());
    const auto ecrit = [this](qint64 combien) { return nombreecrit(combien, texte_); };
    QString dit;
    if (nombre == 0)
        dit = texte_(Texte::ChercherIntrouvable);
    else if (ici != occurrences_.end())
        dit = remplace(texte_(Texte::ChercherRang), {ecrit(ici - occurrences_.begin() + 1), ecrit(nombre)});
    else if (nombre == 1)
        dit = texte_(Texte::ChercherUneOccurrence);
    else
        dit = remplace(texte_(Texte::ChercherOccurrences), {ecrit(nombre)});
    QPalette teinte;
    teinte.setColor(QPalette::WindowText, nombre == 0 ? look::warningColour(look::themeOf(palette()))
                                                      : palette().color(QPalette::PlaceholderText));
    static_cast<ChampCherche*>(txtFind_)->dit(vue_ && !txtFind_->text().isEmpty() ? dit : QString(), teinte);
}

/// The hit of another text is none of this one: its selection goes, if the user has not made another meanwhile.
void frmFindForm::quittetrouve() {
    if (vue_ && recherche_.derniere() >= 0 && vue_->selStart() == recherche_.derniere())
        vue_->setSelLength(0);
}

void frmFindForm::decouvre() {
    const QPoint place = placelibre(frameGeometry(), surface(*vue_));
    if (place != frameGeometry().topLeft())
        move(place);
}

// ---- its commands

RichTextBox* frmFindForm::vuecherchee() {
    const Cible cible = active_();
    if (!cible.vue) {
        reject();
        return nullptr;
    }
    if (std::exchange(document_, cible.document) != cible.document)
        recherche_.recommence();
    if (cible.vue != vue_)
        actualise();
    return cible.vue;
}

void frmFindForm::suivant() {
    RichTextBox* vue = vuecherchee();
    if (!vue)
        return;
    const auto issue = recherche_.suivant(vue->control(), txtFind_->text(), options());
    montreetat();
    if (issue == RechercheTexte::Issue::Trouve)
        return decouvre();
    constexpr auto absent = Texte::TextePasTrouve;
    constexpr auto termine = Texte::RechercheTerminee;
    dialogues_.message(texte_(issue == RechercheTexte::Issue::Absent ? absent : termine), texte_(titredesmessages));
}

void frmFindForm::precedent() {
    RichTextBox* vue = vuecherchee();
    if (vue && recherche_.precedent(vue->control(), occurrences_, txtFind_->text().size())) {
        montreetat();
        decouvre();
    }
}

} // namespace velm
