#include "shell/frmconnexion.h"

#include "core/texte.h"
#include "platform/widgets/look/look.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QStyle>
#include <QVBoxLayout>

namespace velm {

namespace {

using namespace Qt::Literals::StringLiterals;

constexpr int largeurdeligne = 400;

} // namespace

frmconnexion::frmconnexion(const Libelles& texte, Connexion& connexion, QWidget* parent)
    : QDialog(parent), connexion_(connexion), lieu_(etiquette("Label1")), cause_(etiquette("Label2")) {
    setObjectName(u"frmconnexion"_s);
    setWindowTitle(texte(Texte::TitreConnexion));
    setWindowModality(Qt::ApplicationModal);
    construit(texte);
    conclut(false);
}

QLabel* frmconnexion::etiquette(const char* nom) {
    auto* ligne = new QLabel(this);
    ligne->setObjectName(QString::fromLatin1(nom));
    // Paths are texts: a "<" in one is no markup. They may be selected, to be looked up elsewhere.
    ligne->setTextFormat(Qt::PlainText);
    ligne->setTextInteractionFlags(Qt::TextSelectableByMouse);
    ligne->setWordWrap(true);
    return ligne;
}

QPushButton* frmconnexion::bouton(const char* nom, const QString& texte) {
    auto* neuf = new QPushButton(texte, this);
    neuf->setObjectName(QString::fromLatin1(nom));
    neuf->setAutoDefault(false);
    return neuf;
}

void frmconnexion::construit(const Libelles& texte) {
    auto* image = new QLabel(this);
    const int cote = style()->pixelMetric(QStyle::PM_MessageBoxIconSize, nullptr, this);
    image->setPixmap(style()->standardIcon(QStyle::SP_MessageBoxWarning, nullptr, this).pixmap(cote, cote));
    auto* suite = etiquette("Label3");
    suite->setText(texte(Texte::VousPouvez));
    QPushButton* const encore = bouton("Command1", texte(Texte::Reessayer));
    QPushButton* const ailleurs = bouton("Command2", texte(Texte::RechercherLaBase));
    QPushButton* const quitte = bouton("Command3", texte(Texte::Quitter));
    encore->setDefault(true);
    connect(encore, &QPushButton::clicked, this, [this] { conclut(connexion_.reessaie()); });
    connect(ailleurs, &QPushButton::clicked, this, [this] { conclut(connexion_.cherche()); });
    connect(quitte, &QPushButton::clicked, this, &QDialog::reject);

    auto* boutons = new QHBoxLayout;
    boutons->setSpacing(look::spacing);
    boutons->addStretch();
    auto* textes = new QVBoxLayout;
    textes->setSpacing(look::windowMargin);
    for (QLabel* const ligne : {lieu_, cause_, suite}) {
        ligne->setMinimumWidth(largeurdeligne);
        textes->addWidget(ligne);
    }
    for (QPushButton* const choix : {encore, ailleurs, quitte})
        boutons->addWidget(choix);
    auto* haut = new QHBoxLayout;
    haut->setSpacing(look::groupSpacing);
    haut->addWidget(image, 0, Qt::AlignTop);
    haut->addLayout(textes, 1);
    auto* disposition = new QVBoxLayout(this);
    disposition->setContentsMargins(look::windowMargin, look::windowMargin, look::windowMargin, look::windowMargin);
    disposition->setSpacing(look::groupSpacing);
    disposition->addLayout(haut, 1);
    disposition->addLayout(boutons);
    encore->setFocus();
}

/// With an open base the dialog has done its work; else it says where and why not.
void frmconnexion::conclut(bool ouverte) {
    if (ouverte) {
        accept();
        return;
    }
    lieu_->setText(connexion_.lieu());
    cause_->setText(connexion_.cause());
}

} // namespace velm
