#include "shell/frmabout.h"

#include "core/langue.h"
#include "core/texte.h"
#include "platform/system/dialogues.h"
#include "platform/widgets/look/look.h"
#include "platform/widgets/look/plaintext.h"
#include "shell/frmabout_logo.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QShowEvent>
#include <QTimer>
#include <QVBoxLayout>
#include <QVersionNumber>

namespace velm {

namespace {

using namespace Qt::Literals::StringLiterals;

constexpr int cotelogo = 64;
constexpr int largeurtexte = 400;
constexpr int marge = 5 * look::grid;
constexpr int intervalle = 110;
constexpr qsizetype caracteresdetitre = 160;

} // namespace

QString versioncourte(const QString& version) {
    const QVersionNumber lue = QVersionNumber::fromString(version);
    return QVersionNumber(lue.majorVersion(), lue.minorVersion(), lue.microVersion()).toString();
}

frmAbout::frmAbout(const Libelles& texte, const QString& version, const QString& collection, Rappels rappels,
                   Dialogues& dialogues, QWidget* parent)
    : QDialog(parent), texte_(texte), rappels_(std::move(rappels)), dialogues_(dialogues) {
    setObjectName(u"frmAbout"_s);
    setWindowTitle(texte_(Texte::TitreAPropos));
    setWindowModality(Qt::ApplicationModal);
    minuterie_ = new QTimer(this);
    minuterie_->setObjectName(u"Timer1"_s);
    minuterie_->setInterval(intervalle);
    construit(version, collection);
    connect(minuterie_, &QTimer::timeout, logo_, &Logo::suivante);
    connect(logo_, &Logo::clique, this, &frmAbout::basculeanimation);
}

/// What a publisher calls it may be of any length; the box is not.
QLabel* frmAbout::titredelabase(const QString& collection) {
    const bool entier = collection.size() <= caracteresdetitre;
    auto* titre = new QLabel(
        remplace(texte_(Texte::CollectionNommee), {entier ? collection : collection.left(caracteresdetitre) + u'…'}),
        this);
    titre->setObjectName(u"lblCollection"_s);
    titre->setTextFormat(Qt::PlainText);
    titre->setWordWrap(true);
    titre->setFixedWidth(largeurtexte);
    return titre;
}

void frmAbout::construit(const QString& version, const QString& collection) {
    logo_ = new Logo(cotelogo, this);
    logo_->setObjectName(u"Picture2"_s);
    logo_->setAccessibleName(texte_(Texte::NomDuProgramme));

    auto* titre = plainLabel(texte_(Texte::NomDuProgramme), this);
    titre->setObjectName(u"lblTitle"_s);
    QFont police = titre->font();
    police.setPointSizeF(police.pointSizeF() * 1.2);
    police.setWeight(QFont::DemiBold);
    titre->setFont(police);
    auto* numero = plainLabel(texte_(Texte::Version) + u' ' + versioncourte(version), this);
    numero->setObjectName(u"lblVersion"_s);
    numero->setTextInteractionFlags(Qt::TextSelectableByMouse);

    QStringList phrases;
    for (const Texte mention : {Texte::MentionDesDroits, Texte::MentionDeLaReproduction, Texte::MentionDeLaValeur,
                                Texte::MentionDeLaResponsabilite})
        phrases.append(texte_(mention));
    auto* conditions = plainLabel(phrases.join(u' '), this);
    conditions->setObjectName(u"conditions"_s);
    conditions->setTextFormat(Qt::PlainText);
    conditions->setWordWrap(true);
    conditions->setMinimumWidth(largeurtexte);

    auto* ok = new QPushButton(texte_(Texte::BoutonOk), this);
    ok->setObjectName(u"cmdok"_s);
    ok->setDefault(true);
    connect(ok, &QPushButton::clicked, this, &QDialog::close);
    auto* systeme = new QPushButton(texte_(Texte::BoutonInformationsSysteme), this);
    systeme->setObjectName(u"cmdSysInfo"_s);
    systeme->setAutoDefault(false);
    connect(systeme, &QPushButton::clicked, this, &frmAbout::informationssysteme);

    auto* colonne = new QVBoxLayout;
    colonne->setSpacing(look::grid);
    colonne->addWidget(titre);
    colonne->addWidget(numero);
    if (!collection.isEmpty())
        colonne->addWidget(titredelabase(collection));
    colonne->addSpacing(look::windowMargin);
    colonne->addWidget(conditions);
    colonne->addStretch();
    auto* corps = new QHBoxLayout;
    corps->setSpacing(6 * look::grid);
    corps->addWidget(logo_, 0, Qt::AlignTop);
    corps->addLayout(colonne, 1);
    auto* pied = new QHBoxLayout;
    pied->setSpacing(look::spacing);
    pied->addStretch();
    pied->addWidget(systeme);
    pied->addWidget(ok);
    auto* disposition = new QVBoxLayout(this);
    disposition->setContentsMargins(marge, marge, marge, look::windowMargin);
    disposition->setSpacing(look::groupSpacing);
    disposition->setSizeConstraint(QLayout::SetFixedSize);
    disposition->addLayout(corps);
    disposition->addLayout(pied);
    setTabOrder(ok, systeme);
    ok->setFocus();
}

void frmAbout::showEvent(QShowEvent* evenement) {
    QDialog::showEvent(evenement);
    minuterie_->start();
    if (rappels_.estmontree)
        rappels_.estmontree();
}

void frmAbout::hideEvent(QHideEvent* evenement) {
    minuterie_->stop();
    QDialog::hideEvent(evenement);
}

void frmAbout::basculeanimation() {
    if (minuterie_->isActive())
        minuterie_->stop();
    else
        minuterie_->start();
}

void frmAbout::informationssysteme() {
    if (!rappels_.lancesysinfo || !rappels_.lancesysinfo())
        dialogues_.message(texte_(Texte::InformationsSystemeIntrouvables), texte_(Texte::TitreAPropos),
                           Icone::Information);
}

} // namespace velm
