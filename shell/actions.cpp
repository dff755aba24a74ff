#include "shell/actions.h"

#include "core/fenetrefille.h"
#include "core/tablereglages.h"
#include "core/texte.h"
#include "platform/widgets/look/plaintext.h"
#include "shell/logique/commandes.h"

#include <QAction>
#include <QActionGroup>
#include <QApplication>
#include <QFontMetrics>

#include <algorithm>

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

/// A caption that came from a document: its ampersands are no accelerators, its tabs no columns.
QString sansraccourci(const QString& libelle) {
    return libelle.simplified().replace(u'&', u"&&"_s);
}

/// What has no name yet until it is given one.
bool commencecache(Ordre ordre) {
    return ordre == Ordre::DernierDocument || ordre == Ordre::Fenetre || ordre == Ordre::Outil;
}

} // namespace

Actions::Actions(const Libelles& texte, const std::function<QIcon(const QString&)>& image, QObject* parent)
    : QObject(parent) {
    for (const LigneCommande& ligne : commandes()) {
        QList<QAction*>& serie = series_.at(static_cast<std::size_t>(ligne.ordre));
        for (int rang = 0; rang < ligne.nombre; ++rang)
            serie << nouvelle(ligne.ordre, rang, texte, image);
        if (ligne.forme == Forme::Choix) {
            auto* groupe = new QActionGroup(this);
            for (QAction* action : std::as_const(serie))
                groupe->addAction(action);
        }
    }
}

QAction* Actions::nouvelle(Ordre ordre, int rang, const Libelles& texte,
                           const std::function<QIcon(const QString&)>& image) {
    const LigneCommande& ligne = lignede(ordre);
    const auto libelle = libellede(ordre, rang);
    auto* action = new QAction(libelle ? texte(*libelle) : QString(), this);
    const QString nom = entreede(ordre, rang);
    action->setObjectName(nom.isEmpty() ? boutonde(ordre, rang) : nom);
    if (!ligne.image.isEmpty())
        action->setIcon(image(imagede(ordre, rang)));
    action->setCheckable(ligne.forme == Forme::Bascule || ligne.forme == Forme::Choix);
    action->setEnabled(lignede(ordre).besoin == Besoin::Rien);
    action->setVisible(!commencecache(ordre));
    action->setShortcut(QKeySequence::fromString(ligne.touche.toString(), QKeySequence::PortableText));
    connect(action, &QAction::triggered, this, [this, action, ordre, rang] {
        action->setChecked(!action->isChecked()); // the press alone has moved the mark, where there is one
        emit commande(ordre, rang);
    });
    return action;
}

QAction& Actions::de(Ordre ordre, int rang) const {
    const QList<QAction*>& toutes = serie(ordre);
    Q_ASSERT(rang >= 0 && rang < toutes.size());
    return *toutes.at(rang);
}

QList<QAction*> Actions::toutes() const {
    QList<QAction*> ensemble;
    for (const QList<QAction*>& serie : series_)
        ensemble += serie;
    return ensemble;
}

void Actions::permet(Ordre ordre, bool permis, int rang) {
    de(ordre, rang).setEnabled(permis);
}

void Actions::coche(Ordre ordre, bool cochee, int rang) {
    de(ordre, rang).setChecked(cochee);
}

bool Actions::estcochee(Ordre ordre, int rang) const {
    return de(ordre, rang).isChecked();
}

void Actions::choisit(Ordre ordre, int rang) {
    for (int ici = 0; ici < serie(ordre).size(); ++ici)
        coche(ordre, ici == rang, ici);
}

void Actions::montre(Ordre ordre, bool montree, int rang) {
    de(ordre, rang).setVisible(montree);
}

void Actions::intitule(Ordre ordre, int rang, const QString& debut, const QString& titre) {
    const QString ligne = titre.simplified();
    const QString montre = entryText(ligne, QFontMetrics(QApplication::font("QMenu")));
    QAction& action = de(ordre, rang);
    action.setText(debut + sansraccourci(montre));
    action.setToolTip(entryTip(ligne, montre));
}

void Actions::suit(const FenetreFille* active) {
    for (const LigneCommande& ligne : commandes()) {
        if (ligne.besoin == Besoin::Fenetre)
            permet(ligne.ordre, active && active->peut(ligne.ordre));
    }
    emit documentdevant(active && active->nature() == Nature::Document);
}

void Actions::changeoutils(const QList<OutilMontre>& outils) {
    nombredoutils_ = std::min(static_cast<int>(outils.size()), reglage::nombremaxoutils);
    for (int rang = 0; rang < reglage::nombremaxoutils; ++rang) {
        const OutilMontre outil = outils.value(rang);
        const bool la = rang < nombredoutils_;
        intitule(Ordre::Outil, rang, {}, outil.libelle);
        de(Ordre::Outil, rang).setIcon(outil.image);
        de(Ordre::Outil, rang).setIconText(outil.libelle); // the caption without what it means to a menu
        montre(Ordre::Outil, la, rang);
        permet(Ordre::Outil, la, rang);
    }
    emit outilschanges();
}

} // namespace velm
