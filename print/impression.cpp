#include "print/impression.h"

#include "print/marquedossier.h"

#include <limits>
#include <utility>

namespace velm {
namespace {

using namespace Qt::Literals::StringLiterals;

/// Places on a sheet are kept in 16 bits.
int positioncourte(qint64 position) {
    if (position < std::numeric_limits<qint16>::min() || position > std::numeric_limits<qint16>::max())
        throw PositionHorsBornes();
    return static_cast<int>(position);
}

/// What the printer keeps of a text while it is printed: the text may be gone when it hears of the next one.
class Cache {
public:
    explicit Cache(PrintDevice& imprimante) : imprimante_(imprimante) {}
    ~Cache() { imprimante_.release(); }
    Cache(const Cache&) = delete;
    Cache& operator=(const Cache&) = delete;

private:
    PrintDevice& imprimante_;
};

int bas(const QRect& zone) {
    return zone.top() + zone.height();
}

} // namespace

Impression::Impression(Donnees donnees)
    : donnees_(std::move(donnees)), entetepied_(donnees_.imprimante, donnees_.etat) {}

void Impression::imprimerichtext(const RichTextControl& rtf, qsizetype debut, qsizetype fin) {
    imprime(jeududocument(), rtf, debut, fin);
}

void Impression::imprimerrichtextdossier(const RichTextControl& rtf, const QString& nomdossier, qsizetype debut,
                                         qsizetype fin) {
    imprime(jeududossier(nomdossier), rtf, debut, fin);
}

void Impression::terminetravail() {
    termine(jeududocument());
}

void Impression::terminetravaildossier(const QString& nomdossier) {
    termine(jeududossier(nomdossier));
}

/// The state first: a printer that has gone must not keep the user in a job for ever.
void Impression::abandontravail() {
    donnees_.etat.ferme();
    donnees_.afficheboutonsimpression(false);
    donnees_.imprimante.discard();
}

void Impression::imprime(const Jeu& jeu, const RichTextControl& rtf, qsizetype debut, qsizetype fin) {
    const PrintDevice::Sheet feuille = donnees_.imprimante.sheet();
    const QRect place = zone(jeu.reglages);
    // Before anything is printed: it would take a sheet for each line, or have no end.
    if (place.isEmpty())
        throw FeuilleTropPetite();
    const Cache cache(donnees_.imprimante);
    donnees_.imprimante.blank();
    donnees_.etat.decalagex = feuille.offsetX;
    donnees_.etat.decalagey = feuille.offsetY;
    if (jeu.reglages.ejectionautomatique)
        donnees_.etat.numeropage = 0;
    donnees_.etat.positioncourante = positioncourte(pages(jeu, place, rtf, debut, fin));
    finimpression(jeu);
}

QRect Impression::zone(const ReglagesImpression& reglages) const {
    const PrintDevice::Sheet feuille = donnees_.imprimante.sheet();
    const int gauche = placesurfeuille(reglages.margegauche - feuille.offsetX);
    const int haut = placesurfeuille(reglages.margehaute + reglages.margeentete - feuille.offsetY);
    const int droite = placesurfeuille(feuille.width - reglages.margedroite - feuille.offsetX);
    const int enbas =
        placesurfeuille(feuille.height - reglages.margebasse - reglages.margepieddepage - feuille.offsetY);
    return {gauche, haut, droite - gauche, enbas - haut};
}

int Impression::pages(const Jeu& jeu, const QRect& zone, const RichTextControl& rtf, qsizetype debut, qsizetype fin) {
    // A place is compared with a length: what is printed of a selection further down may end early.
    const qsizetype longueur = fin == tout ? rtf.length() : rtf.selLength();
    for (;;) {
        QRect passage = zone;
        passage.setTop(hautdupassage(jeu, zone));
        const PrintDevice::Formatted fait = donnees_.imprimante.format(rtf.richText(), debut, fin, passage);
        if (fait.next >= longueur)
            return fait.bottom;
        // A printer that takes no line at all would be asked for ever.
        if (fait.next <= debut)
            throw FeuilleTropPetite();
        debut = fait.next;
        sautdepage(jeu);
    }
}

/// Behind the document before it, where three lines have room there.
int Impression::hautdupassage(const Jeu& jeu, const QRect& zone) {
    constexpr int lignes = 3;
    const int position = donnees_.etat.positioncourante;
    if (jeu.reglages.ejectionautomatique || position < 1)
        return zone.top();
    if (lignes * donnees_.imprimante.textHeight(u"A"_s) <= bas(zone) - position)
        return position;
    sautdepage(jeu);
    return zone.top();
}

void Impression::sautdepage(const Jeu& jeu) {
    dessineentetepied(jeu);
    donnees_.imprimante.newPage();
    donnees_.etat.positioncourante = EtatImpression::aucuneposition;
    donnees_.imprimante.blank();
}

/// The buttons of a dossier's job change at its end alone.
void Impression::finimpression(const Jeu& jeu) {
    const bool ejecte = jeu.reglages.ejectionautomatique;
    donnees_.etat.travailencours = !ejecte;
    if (ejecte) {
        dessineentetepied(jeu);
        donnees_.etat.ferme();
        donnees_.imprimante.endDocument();
    } else {
        descend();
        if (jeu.reglages.ligneseparatrice)
            donnees_.imprimante.rule(0, donnees_.imprimante.sheet().width, donnees_.etat.positioncourante);
        descend();
    }
    if (!jeu.nomdossier)
        donnees_.afficheboutonsimpression(!ejecte);
}

/// Half of the room between two documents.
void Impression::descend() {
    constexpr int moitie = 100;
    donnees_.etat.positioncourante = positioncourte(donnees_.etat.positioncourante + moitie);
}

void Impression::termine(const Jeu& jeu) {
    dessineentetepied(jeu);
    donnees_.imprimante.endDocument();
    donnees_.etat.ferme();
    donnees_.afficheboutonsimpression(false);
}

void Impression::dessineentetepied(const Jeu& jeu) {
    entetepied_.dessine(jeu.reglages, texteimprime(jeu.reglages.textentete, jeu),
                        texteimprime(jeu.reglages.textpied, jeu));
}

QString Impression::texteimprime(const QString& texte, const Jeu& jeu) const {
    if (!jeu.nomdossier)
        return texte;
    return placenomdossier(texte, marquedossier(donnees_.texte(Texte::MarqueNomDossier)), *jeu.nomdossier);
}

} // namespace velm
