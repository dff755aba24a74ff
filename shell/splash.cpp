#include "shell/splash.h"

#include "platform/widgets/look/look.h"
#include "platform/widgets/look/plaintext.h"
#include "shell/frmabout_logo.h"

#include <QFrame>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QProgressBar>
#include <QScreen>
#include <QShowEvent>
#include <QVBoxLayout>

#include <algorithm>

namespace velm {

namespace {

using namespace Qt::Literals::StringLiterals;

constexpr QSize tailledelecran(480, 240);
constexpr int cotedulogo = 80;
constexpr int margedelecran = 8 * look::grid;
constexpr QSize filet(48, 2);
constexpr int hauteurbarre = 6;

} // namespace

frmSplash::frmSplash(const Textes& textes)
    : QWidget(nullptr, Qt::SplashScreen | Qt::WindowStaysOnTopHint), cadre_(new QFrame(this)) {
    setObjectName(u"frmSplash"_s);
    setWindowTitle(textes.titre);
    construit(textes);
    setFixedSize(tailledelecran.expandedTo(sizeHint()));
    if (const QScreen* ecran = QGuiApplication::primaryScreen())
        move(ecran->availableGeometry().center() - rect().center());
}

QLabel* frmSplash::etiquette(const char* nom, const QString& texte) {
    auto* label = plainLabel(texte, cadre_);
    label->setObjectName(QString::fromLatin1(nom));
    label->setTextFormat(Qt::PlainText);
    return label;
}

void frmSplash::construit(const Textes& textes) {
    cadre_->setObjectName(u"Frame1"_s);
    auto* logo = new Logo(cotedulogo, cadre_);
    logo->setObjectName(u"imgLogo"_s);

    auto* titre = etiquette("lblProductName", textes.titre);
    QFont police = titre->font();
    police.setPointSizeF(police.pointSizeF() * 2);
    police.setWeight(QFont::DemiBold);
    titre->setFont(police);
    auto* trait = etiquette("Label1", QString());
    trait->setFixedSize(filet);
    trait->setAutoFillBackground(true);
    QPalette accent = palette();
    accent.setColor(QPalette::Window, look::accentColour(look::themeOf(palette())));
    trait->setPalette(accent);
    auto* marque = etiquette("trademark", textes.marque);
    auto* version = etiquette("lblVersion", textes.version);
    QPalette discrete = palette();
    discrete.setColor(QPalette::WindowText, palette().color(QPalette::PlaceholderText));
    version->setPalette(discrete);
    etape_ = etiquette("lblEtape", QString());
    progression_ = new QProgressBar(cadre_);
    progression_->setObjectName(u"ProgressBar1"_s);
    progression_->setRange(0, 100);
    progression_->setTextVisible(false);
    progression_->setFixedHeight(hauteurbarre);
    progression_->hide();
    QSizePolicy place = progression_->sizePolicy();
    place.setRetainSizeWhenHidden(true);
    progression_->setSizePolicy(place);

    auto* colonne = new QVBoxLayout;
    colonne->setSpacing(look::spacing);
    colonne->addWidget(titre);
    colonne->addWidget(trait);
    colonne->addSpacing(look::grid);
    colonne->addWidget(marque);
    colonne->addWidget(version);
    colonne->addStretch();
    colonne->addWidget(etape_);
    colonne->addWidget(progression_);
    auto* corps = new QHBoxLayout(cadre_);
    corps->setContentsMargins(margedelecran, margedelecran, margedelecran, 5 * look::grid);
    corps->setSpacing(6 * look::grid);
    corps->addWidget(logo, 0, Qt::AlignTop);
    corps->addLayout(colonne, 1);
    auto* fenetre = new QVBoxLayout(this);
    fenetre->setContentsMargins(0, 0, 0, 0);
    fenetre->addWidget(cadre_);
}

void frmSplash::changeetape(const QString& etape) {
    etape_->setText(etape);
    repeint();
}

void frmSplash::changeprogression(double pourcentage) {
    progression_->setValue(static_cast<int>(std::clamp(pourcentage, 0.0, 100.0)));
    progression_->show();
    repeint();
}

void frmSplash::repeint() {
    if (isVisible())
        repaint();
}

void frmSplash::paintEvent(QPaintEvent*) {
    QPainter peintre(this);
    peintre.fillRect(rect(), palette().window());
    peintre.setPen(palette().color(QPalette::Mid));
    peintre.drawRect(rect().adjusted(0, 0, -1, -1));
}

void frmSplash::showEvent(QShowEvent* evenement) {
    QWidget::showEvent(evenement);
    if (!evenement->spontaneous() && estmontree)
        estmontree();
}

} // namespace velm
