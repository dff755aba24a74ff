#include "shell/depart.h"

#include "document/ui/textes.h"
#include "platform/widgets/frame/childarea.h"
#include "platform/widgets/frame/emptyground.h"
#include "search/rechercherapide.h"
#include "search/typescherches.h"
#include "shell/actions.h"
#include "shell/bureau.h"
#include "shell/logique/pagedepart.h"
#include "shell/selection.h"
#include "shell/vuedepart.h"

#include <QAction>
#include <QCoreApplication>
#include <QLineEdit>

namespace velm {

namespace {

constexpr int plusdetrouves = 9;

} // namespace

Depart::Depart(const Donnees& donnees)
    : donnees_(donnees),
      vue_(new VueDepart(donnees.texte,
                         {[this] {
                              const Navigation& navigation = donnees_.bureau.navigation();
                              return pagedepart(navigation.derniersdocuments(), navigation.derniersdocumentslibelles(),
                                                donnees_.texte);
                          },
                          [this](int indice) { return donnees_.corpus.nombrededocuments(typedindice(indice)); }})),
      recherche_(
          donnees.corpus, [] { QCoreApplication::processEvents(); },
          [this](const Resultat& resultat, bool finie) { montre(resultat, finie); }) {
    new EmptyGround(donnees_.aire, vue_); // the area's
    apreslafrappe_.setSingleShot(true);
    apreslafrappe_.setInterval(0);
    relie();
}

void Depart::relie() {
    Actions& actions = donnees_.actions;
    connect(vue_, &VueDepart::collectionvoulue, this,
            [&actions](int indice) { actions.de(Ordre::Collection, indice).trigger(); });
    connect(vue_, &VueDepart::derniervoulu, this,
            [&actions](int rang) { actions.de(Ordre::DernierDocument, rang).trigger(); });
    connect(vue_, &VueDepart::recherchevoulue, this, [&actions] { actions.de(Ordre::AllerChercher).trigger(); });
    connect(vue_, &VueDepart::documentvoulu, this, &Depart::ouvre);
    connect(vue_, &VueDepart::listevoulue, this, &Depart::mettoutdanslaliste);
    connect(vue_, &VueDepart::cachee, this, &Depart::arrete);
    connect(vue_, &VueDepart::tapee, this, [this](const QString& texte) {
        if (texte.isEmpty())
            arrete();
        else
            apreslafrappe_.start();
    });
    connect(&apreslafrappe_, &QTimer::timeout, this, [this] { recherche_.cherche(vue_->cherche(), plusdetrouves); });
}

void Depart::alaprochainevue(std::function<void()> fait) {
    connect(
        vue_, &VueDepart::vue, this, [fait = std::move(fait)] { fait(); },
        static_cast<Qt::ConnectionType>(Qt::QueuedConnection | Qt::SingleShotConnection));
}

void Depart::arrete() {
    apreslafrappe_.stop();
    recherche_.arrete();
}

void Depart::montre(const Resultat& resultat, bool finie) {
    const int nombre = resultat.lignes.nombre();
    std::vector<DocumentTrouve> trouves;
    for (int rang = 1; rang <= nombre; ++rang)
        trouves.push_back({decoupecle(resultat.lignes.cle(rang)), resultat.lignes.champ(rang, Lignes::Titre)});
    vue_->montretrouves(trouves, finie ? resultat.total.value_or(nombre) : std::optional<qint64>());
}

/// With the words to mark, as from the list.
void Depart::ouvre(const Cle& cle) {
    const QString mots = vue_->cherche();
    donnees_.bureau.navigation().ouvre(cle, {.replier = true});
    Textes* fenetre = donnees_.bureau.active();
    if (fenetre && fenetre->cle() == cle)
        fenetre->recoitmots(mots, QString());
}

void Depart::mettoutdanslaliste(const QString& texte) {
    arrete();
    RemplissageListe& liste = donnees_.selection.controle().remplissage();
    const auto montre = [&liste] { liste.montreliste(); };
    liste.remplit(
        [&liste, texte, montre](const std::stop_token& arret) {
            Marche marche = liste.marche(arret);
            RechercheRapide(liste.corpus(), marche).cherche({texte, touteslettres()}, liste.nouveau());
            liste.acheve();
            if (liste.liste().lignes() == 0)
                liste.dit(0);
            montre();
        },
        montre);
}

} // namespace velm
