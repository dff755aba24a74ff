#include "shell/frmtip.h"

#include "core/texte.h"
#include "platform/widgets/look/icons.h"
#include "platform/widgets/look/look.h"
#include "platform/widgets/look/plaintext.h"
#include "shell/logique/astuces.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QVBoxLayout>

namespace velm {

namespace {

using namespace Qt::Literals::StringLiterals;

constexpr int coteimage = 48;
constexpr int largeurdelastuce = 400;
constexpr int hauteurtexte = 96;

/// The sheet that the tip lies on: white like a document, and scrolled if the tip is long.
QScrollArea* feuille(QLabel* texte, QWidget* parent) {
    texte->setWordWrap(true);
    texte->setTextInteractionFlags(Qt::TextSelectableByMouse);
    texte->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    texte->setMargin(look::windowMargin);
    auto* zone = new QScrollArea(parent);
    zone->setWidget(texte);
    zone->setWidgetResizable(true);
    zone->setMinimumSize(largeurdelastuce, hauteurtexte);
    zone->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    zone->setBackgroundRole(QPalette::Base);
    texte->setBackgroundRole(QPalette::Base);
    return zone;
}

} // namespace

frmTip::frmTip(const Libelles& texte, Astuces& astuces, const QString& fichier, Demarrage demarrage, QWidget* parent)
    : QDialog(parent), astuces_(astuces), change_(std::move(demarrage.change)) {
    setObjectName(u"frmTip"_s);
    setWindowTitle(texte(Texte::TitreAstuce));
    setWindowModality(Qt::ApplicationModal);
    construit(texte, demarrage.coche);
    if (!astuces_.loadtips(fichier))
        texte_->setText(texte(Texte::AucuneAstuce));
    montreastuce();
}

void frmTip::construit(const Libelles& texte, bool coche) {
    auto* image = plainLabel({}, this);
    image->setObjectName(u"Image1"_s);
    image->setPixmap(icon(u"astuce"_s).pixmap(QSize(coteimage, coteimage), devicePixelRatioF()));

    auto* titre = plainLabel(texte(Texte::LeSaviezVous), this);
    titre->setObjectName(u"Label1"_s);
    QFont police = titre->font();
    police.setPointSizeF(police.pointSizeF() * 1.2);
    police.setWeight(QFont::DemiBold);
    titre->setFont(police);

    texte_ = plainLabel({}, nullptr);
    texte_->setObjectName(u"lblTipText"_s);
    texte_->setAccessibleName(texte(Texte::TitreAstuce));
    QScrollArea* zone = feuille(texte_, this);
    zone->setAccessibleName(texte(Texte::TitreAstuce));

    auto* montrer = new QCheckBox(texte(Texte::AstucesAuDemarrage), this);
    montrer->setObjectName(u"chkLoadTipsAtStartup"_s);
    montrer->setChecked(coche);
    connect(montrer, &QCheckBox::clicked, this, [this](bool cochee) {
        if (change_)
            change_(cochee);
    });

    auto* ok = new QPushButton(texte(Texte::BoutonOk), this);
    ok->setObjectName(u"cmdok"_s);
    ok->setDefault(true);
    connect(ok, &QPushButton::clicked, this, &QDialog::close);
    auto* suivante = new QPushButton(texte(Texte::AstuceSuivante), this);
    suivante->setObjectName(u"cmdNextTip"_s);
    suivante->setAutoDefault(false);
    connect(suivante, &QPushButton::clicked, this, [this] {
        astuces_.nexttip();
        montreastuce();
    });

    auto* tete = new QHBoxLayout;
    tete->setSpacing(look::windowMargin);
    tete->addWidget(image);
    tete->addWidget(titre, 1);
    auto* pied = new QHBoxLayout;
    pied->setSpacing(look::spacing);
    pied->addWidget(montrer);
    pied->addSpacing(look::groupSpacing);
    pied->addStretch();
    pied->addWidget(suivante);
    pied->addWidget(ok);
    auto* disposition = new QVBoxLayout(this);
    disposition->setContentsMargins(look::windowMargin, look::windowMargin, look::windowMargin, look::windowMargin);
    disposition->setSpacing(look::windowMargin);
    disposition->addLayout(tete);
    disposition->addWidget(zone, 1);
    disposition->addLayout(pied);
    setTabOrder(ok, suivante);
    setTabOrder(suivante, montrer);
    ok->setFocus();
}

void frmTip::montreastuce() {
    if (astuces_.nombre() > 0)
        texte_->setText(astuces_.displaycurrenttip());
}

} // namespace velm
