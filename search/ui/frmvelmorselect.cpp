#include "search/ui/frmvelmorselect.h"

#include "core/parametres.h"
#include "platform/widgets/frame/toolbar.h"
#include "platform/widgets/look/plaintext.h"
#include "search/ui/boitederniers.h"
#include "search/ui/champdate.h"
#include "search/ui/completionmots.h"

#include <QApplication>
#include <QCheckBox>
#include <QCloseEvent>
#include <QListWidget>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QStringListModel>
#include <QTabWidget>

namespace velm {

using namespace Qt::Literals::StringLiterals;

FrmVelmorSelect::FrmVelmorSelect(const Formulaire::Monde& monde, QWidget* parent)
    : QWidget(parent), texte_(monde.texte), corpus_(monde.hote.atelier().corpus), formulaire_(monde, *this) {
    setObjectName(u"frmVelmorSelect"_s);
    setWindowTitle(texte(2429));
    construit();
    formulaire_.charge();
    relie();
}

void FrmVelmorSelect::relie() {
    connect(ongletrecherche_, &QTabWidget::currentChanged, this, [this](int onglet) {
        formulaire_.ongletchange(static_cast<Onglet>(onglet));
        // The form as a whole has the focus while it waits to be shown.
        if (window()->focusWidget() == this)
            focus(static_cast<Onglet>(onglet));
    });
    // The tab bar takes the focus with the click: the box has it after that.
    connect(
        ongletrecherche_, &QTabWidget::tabBarClicked, this,
        [this](int onglet) {
            if (onglet >= 0)
                focus(static_cast<Onglet>(ongletrecherche_->currentIndex()));
        },
        Qt::QueuedConnection);
    for (const Onglet onglet : {Onglet::Rapide, Onglet::Criteres, Onglet::Mots}) {
        connect(lancer_.at(static_cast<std::size_t>(onglet)), &QPushButton::clicked, this,
                [this, onglet] { lance(onglet); });
        connect(champ(boitede(onglet)), &QLineEdit::returnPressed, this, [this, onglet] { lance(onglet); });
    }
    connect(champ(BoiteTexte::Second), &QLineEdit::returnPressed, this, [this] { lance(Onglet::Criteres); });
    for (ChampDate* date : {textejour_, textemois_, texteannee_}) {
        connect(date, &QLineEdit::returnPressed, this, [this] { lance(Onglet::Criteres); });
        date->retient = [this](const QWidget* ou) { return dateretient(ou); };
    }
    // The Return key on a line does what a click does.
    for (const auto choisie : {&QListWidget::itemClicked, &QListWidget::itemActivated})
        connect(resultat_, choisie, this,
                [this](const QListWidgetItem* ligne) { formulaire_.choisitligne(ligne->text()); });
}

BoiteTexte FrmVelmorSelect::boitede(Onglet onglet) {
    return onglet == Onglet::Rapide     ? BoiteTexte::Rapide
           : onglet == Onglet::Criteres ? BoiteTexte::Premier
                                        : BoiteTexte::Mots;
}

QLineEdit* FrmVelmorSelect::champ(BoiteTexte laquelle) const {
    return de(laquelle).lineEdit();
}

void FrmVelmorSelect::lance(Onglet onglet) {
    completion_->renonce();
    // What is wrong with the next search stops none that runs.
    if (onglet == Onglet::Criteres && !formulaire_.boutonarrete(onglet)) {
        for (ChampDate* date : {textejour_, textemois_, texteannee_}) {
            if (!date->quitte())
                return;
        }
    }
    formulaire_.clic(onglet);
}

/// A wrong date holds the focus in the form and takes it from no other window; nor from the button that searches, which
/// looks at the dates itself, and stops whatever they are.
bool FrmVelmorSelect::dateretient(const QWidget* ou) const {
    return ou && isAncestorOf(ou) && ou != lancer_.at(static_cast<std::size_t>(Onglet::Criteres));
}

void FrmVelmorSelect::presse(bool enfonces) {
    for (int rang = 1; rang <= barre_cran_->buttonCount(); ++rang)
        barre_cran_->setValue(barre_cran_->keyAt(rang), enfonces);
}

void FrmVelmorSelect::activation() {
    // Who clicks into another control of the form wants to be there.
    const QWidget* ici = QApplication::focusWidget();
    if (QApplication::mouseButtons() == Qt::NoButton || !ici || ici == this || !isAncestorOf(ici)) {
        formulaire_.active();
        return;
    }
    const QPointer<QWidget> garde(const_cast<QWidget*>(ici));
    formulaire_.active();
    if (garde)
        garde->setFocus(Qt::MouseFocusReason);
}

void FrmVelmorSelect::ecritreglages() {
    formulaire_.decharge();
}

void FrmVelmorSelect::decharge() {
    formulaire_.ferme();
    formulaire_.decharge();
}

void FrmVelmorSelect::closeEvent(QCloseEvent* evenement) {
    // It stays for the next search, with what it holds.
    evenement->ignore();
    formulaire_.ferme();
}

void FrmVelmorSelect::keyPressEvent(QKeyEvent* evenement) {
    const bool controle = evenement->modifiers() == Qt::ControlModifier;
    if (evenement->matches(QKeySequence::Cancel))
        formulaire_.echappe();
    else if (controle && evenement->key() == Qt::Key_PageDown)
        change(1);
    else if (controle && evenement->key() == Qt::Key_PageUp)
        change(-1);
    else
        QWidget::keyPressEvent(evenement);
}

void FrmVelmorSelect::change(int pas) {
    const int nombre = ongletrecherche_->count();
    montreonglet(static_cast<Onglet>((ongletrecherche_->currentIndex() + pas + nombre) % nombre));
}

// ---- the controls as the logic sees them

EtatFormulaire FrmVelmorSelect::etat() const {
    EtatFormulaire etat;
    etat.ongletrecherche = ongletrecherche_->currentIndex();
    etat.Textedico = de(BoiteTexte::Mots).texte();
    etat.checkandordico = checkandordico_->isChecked();
    etat.Combonombredico = Combonombredico_->currentIndex();
    etat.texterapide = de(BoiteTexte::Rapide).texte();
    etat.combonombre = combonombre_->currentIndex();
    Criteres& criteres = etat.criteres;
    criteres.motcle = combomotcle_->currentIndex() > 0 ? combomotcle_->currentText() : QString();
    criteres.type = combotype_->currentIndex();
    criteres.textejour = textejour_->text();
    criteres.textemois = textemois_->text();
    criteres.texteannee = texteannee_->text();
    criteres.texterech = {de(BoiteTexte::Premier).texte(), de(BoiteTexte::Second).texte()};
    for (std::size_t i = 0; i < motentier_.size(); ++i) {
        criteres.motentier[i] = motentier_[i]->isChecked();
        criteres.respectminmaj[i] = respectminmaj_[i]->isChecked();
    }
    for (std::size_t i = 0; i < emplacement_.size(); ++i)
        criteres.emplacement[i] = emplacement_[i]->isChecked();
    criteres.prefixe = prefixe_->currentIndex();
    criteres.conjonction = conjonction_->currentIndex();
    for (std::size_t i = 0; i < etat.boutons.size(); ++i)
        etat.boutons[i] = barre_cran_->value(barre_cran_->keyAt(static_cast<int>(i) + 1));
    return etat;
}

void FrmVelmorSelect::montre(const EtatFormulaire& etat) {
    ongletrecherche_->setCurrentIndex(etat.ongletrecherche);
    montremots(etat.Textedico);
    checkandordico_->setChecked(etat.checkandordico);
    Combonombredico_->setCurrentIndex(etat.Combonombredico);
    de(BoiteTexte::Rapide).metstexte(etat.texterapide);
    combonombre_->setCurrentIndex(etat.combonombre);
    montrecriteres(etat.criteres);
    for (std::size_t i = 0; i < etat.boutons.size(); ++i)
        barre_cran_->setValue(barre_cran_->keyAt(static_cast<int>(i) + 1), etat.boutons[i]);
}

void FrmVelmorSelect::montreonglet(Onglet onglet) {
    ongletrecherche_->setCurrentIndex(static_cast<int>(onglet));
    focus(onglet);
}

void FrmVelmorSelect::montrecriteres(const Criteres& criteres) {
    combomotcle_->setCurrentIndex(
        criteres.motcle.isEmpty()
            ? 0
            : std::max(combomotcle_->findText(criteres.motcle, Qt::MatchFixedString | Qt::MatchCaseSensitive), 0));
    combotype_->setCurrentIndex(criteres.type);
    textejour_->setText(criteres.textejour);
    textemois_->setText(criteres.textemois);
    texteannee_->setText(criteres.texteannee);
    de(BoiteTexte::Premier).metstexte(criteres.texterech[0]);
    de(BoiteTexte::Second).metstexte(criteres.texterech[1]);
    for (std::size_t i = 0; i < motentier_.size(); ++i) {
        motentier_[i]->setChecked(criteres.motentier[i]);
        respectminmaj_[i]->setChecked(criteres.respectminmaj[i]);
    }
    for (std::size_t i = 0; i < emplacement_.size(); ++i)
        emplacement_[i]->setChecked(criteres.emplacement[i]);
    prefixe_->setCurrentIndex(criteres.prefixe);
    conjonction_->setCurrentIndex(criteres.conjonction);
}

void FrmVelmorSelect::montremots(const QString& mots) {
    de(BoiteTexte::Mots).metstexte(mots);
}

void FrmVelmorSelect::offremotscles(const QStringList& items) {
    const QString choisi = combomotcle_->currentText();
    auto* const modele = qobject_cast<QStringListModel*>(combomotcle_->model());
    modele->setStringList(items);
    combomotcle_->setCurrentIndex(rangditem(items, choisi));
}

void FrmVelmorSelect::offrederniers(BoiteTexte laquelle, const QStringList& textes) {
    de(laquelle).offre(textes);
}

void FrmVelmorSelect::permetaffinage(bool permis) {
    Option2_->setEnabled(permis);
}

void FrmVelmorSelect::choisitaffinage(bool affinage) {
    (affinage ? Option2_ : Option1_)->setChecked(true);
}

bool FrmVelmorSelect::affinage() const {
    return Option2_->isEnabled() && Option2_->isChecked();
}

void FrmVelmorSelect::libelle(Onglet onglet, const QString& texte) {
    lancer_.at(static_cast<std::size_t>(onglet))->setText(texte);
}

void FrmVelmorSelect::montreprogres(qint64 vus, qint64 total) {
    ProgressBar_->setMaximum(static_cast<int>(total));
    ProgressBar_->setValue(static_cast<int>(vus));
    ProgressBar_->setToolTip(plainTip(QString::number(vus)));
    ProgressBar_->show();
}

void FrmVelmorSelect::cacheprogres() {
    ProgressBar_->hide();
}

void FrmVelmorSelect::videresultat() {
    resultat_->clear();
}

void FrmVelmorSelect::ajouteresultat(const QString& ligne) {
    resultat_->addItem(ligne);
}

void FrmVelmorSelect::focus(Onglet onglet) {
    QLineEdit* const celui = champ(boitede(onglet));
    if (celui->hasFocus())
        return;
    celui->setFocus(Qt::OtherFocusReason);
    celui->selectAll();
}

void FrmVelmorSelect::cache() {
    completion_->renonce();
    emit cachevoulu();
}

} // namespace velm
