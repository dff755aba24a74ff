#include "shell/splash.h"

#include "platform/widgets/look.h"

#include <QGuiApplication>
#include <QLabel>
#include <QPainter>
#include <QScreen>
#include <QSvgRenderer>
#include <QVBoxLayout>

namespace velm {

namespace {

QLabel* etiquette(QWidget* parent, const char* nom, const QString& texte) {
    auto* label = new QLabel(texte, parent);
    label->setObjectName(QString::fromLatin1(nom));
    return label;
}

} // namespace

frmSplash::frmSplash(const Textes& textes) : QWidget(nullptr, Qt::SplashScreen | Qt::WindowStaysOnTopHint) {
    setObjectName(QStringLiteral("frmSplash"));
    setWindowTitle(textes.titre);
    setFixedSize(480, 240);

    auto* titre = etiquette(this, "lblTitre", textes.titre);
    QFont police = titre->font();
    police.setPointSizeF(police.pointSizeF() * 2);
    police.setWeight(QFont::DemiBold);
    titre->setFont(police);
    auto* marque = etiquette(this, "trademark", textes.marque);
    auto* version = etiquette(this, "lblVersion", textes.version);
    etape_ = etiquette(this, "lblEtape", QString());

    auto* disposition = new QVBoxLayout(this);
    disposition->setContentsMargins(136, 48, 24, 20);
    disposition->setSpacing(look::spacing);
    disposition->addWidget(titre);
    disposition->addWidget(marque);
    disposition->addWidget(version);
    disposition->addStretch();
    disposition->addWidget(etape_);

    if (const QScreen* ecran = QGuiApplication::primaryScreen())
        move(ecran->availableGeometry().center() - rect().center());
}

void frmSplash::changeetape(const QString& etape) {
    etape_->setText(etape);
    if (isVisible())
        repaint();
}

void frmSplash::paintEvent(QPaintEvent*) {
    QPainter peintre(this);
    peintre.fillRect(rect(), palette().window());
    peintre.setPen(palette().color(QPalette::Mid));
    peintre.drawRect(rect().adjusted(0, 0, -1, -1));
    QSvgRenderer icone(QStringLiteral(":/velmorante.svg"));
    icone.render(&peintre, QRectF(32, 48, 80, 80));
}

} // namespace velm
