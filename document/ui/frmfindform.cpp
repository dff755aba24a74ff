#include "document/ui/frmfindform.h"

#include "core/texte.h"
#include "platform/widgets/look/look.h"
#include "platform/widgets/look/plaintext.h"
#include "platform/widgets/text/richtextbox.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int largeurchamp = 320;
constexpr int hauteurdeligne = 24;
constexpr auto titredesmessages = Texte::TitreRechercheDansLeDocument;

template <typename T>
T* nomme(T* controle, const char* nom) {
    controle->setObjectName(QString::fromLatin1(nom));
    return controle;
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
    txtFind_ = nomme(new QLineEdit(this), "txtFind");
    txtFind_->setMinimumWidth(largeurchamp);
    txtFind_->setClearButtonEnabled(true);
    auto* etiquette = plainLabel(texte_(Texte::TexteARechercher), this);
    etiquette->setBuddy(txtFind_);
    txtFind_->setAccessibleName(texte_(Texte::TexteARechercher));
    checkmot_ = nomme(new QCheckBox(texte_(Texte::ChercherMotEntier), this), "checkmot");
    checkcasse_ = nomme(new QCheckBox(texte_(Texte::ChercherAvecMajuscules), this), "checkcasse");
    cmdFindNext_ = nomme(new QPushButton(texte_(Texte::ChercherSuivant), this), "cmdFindNext");
    cmdFindNext_->setDefault(true);
    cmdFindNext_->setEnabled(false);
    auto* fermer = nomme(new QPushButton(texte_(Texte::ChercherFermer), this), "cmdCancel");
    fermer->setAutoDefault(false);

    auto* boutons = new QHBoxLayout;
    boutons->setSpacing(look::spacing);
    boutons->addStretch(1);
    boutons->addWidget(cmdFindNext_);
    boutons->addWidget(fermer);
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

    connect(txtFind_, &QLineEdit::textChanged, this, [this](const QString& texte) {
        cmdFindNext_->setEnabled(!texte.isEmpty());
        recherche_.recommence();
    });
    connect(cmdFindNext_, &QPushButton::clicked, this, &frmFindForm::suivant);
    connect(fermer, &QPushButton::clicked, this, &frmFindForm::reject);
}

void frmFindForm::montre(const QString& propose) {
    if (!propose.isEmpty())
        txtFind_->setText(propose);
    show();
    raise();
    activateWindow();
    txtFind_->setFocus();
    txtFind_->selectAll();
}

void frmFindForm::decouvre(const RichTextBox& vue) {
    const QRect ligne = vue.cursorRect();
    const QRect hit(vue.viewport()->mapToGlobal(ligne.topLeft()), ligne.size());
    const QRect ici = frameGeometry();
    if (!ici.intersects(hit.adjusted(-hauteurdeligne, 0, hauteurdeligne, 0)))
        return;
    const QRect ecran = screen()->availableGeometry();
    const int dessous = hit.bottom() + hauteurdeligne;
    const int dessus = hit.top() - hauteurdeligne - ici.height();
    move(ici.left(), dessous + ici.height() <= ecran.bottom() || dessus < ecran.top() ? dessous : dessus);
}

void frmFindForm::suivant() {
    const Cible cible = active_();
    if (!cible.vue) {
        reject();
        return;
    }
    if (std::exchange(document_, cible.document) != cible.document)
        recherche_.recommence();
    const int options = RechercheTexte::options(checkmot_->isChecked(), checkcasse_->isChecked());
    const auto issue = recherche_.suivant(cible.vue->control(), txtFind_->text(), options);
    if (issue == RechercheTexte::Issue::Trouve)
        return decouvre(*cible.vue);
    constexpr auto absent = Texte::TextePasTrouve;
    constexpr auto termine = Texte::RechercheTerminee;
    dialogues_.message(texte_(issue == RechercheTexte::Issue::Absent ? absent : termine), texte_(titredesmessages));
}

} // namespace velm
