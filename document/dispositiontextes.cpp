#include "document/dispositiontextes.h"

#include "platform/base/twips.h"

#include <algorithm>

namespace velm {
namespace {

using namespace Qt::Literals::StringLiterals;

constexpr int positionlaterale = 360; // where an upright bar is put that would begin with the panel folded away
constexpr int positionhaute = 1000;   // the same of a bar that lies
// What the panel leaves to the text, where half of the window is not less.
constexpr int largeurtexte = 4500;
constexpr int hauteurtexte = 3000;

// A panel below these sizes shows no block at all rather than slivers of one.
constexpr int largeurlisible = 600;
constexpr int hauteurlisible = 300;
// A panel below these is opened when the user asks for a block.
constexpr int largeurcommode = 1800;
constexpr int hauteurcommode = 1200;
constexpr int hauteurligne = 640; // for the line of the word search
constexpr int largeurhabituelle = 4305;
// Of the panel of a first window. As long as nobody has moved its bar from there, the text has the larger part.
constexpr int largeurpremiere = 4800;

int deuxcinquiemes(int largeur) {
    return largeur * 2 / 5;
}

} // namespace

bool DispositionTextes::replie() const {
    return posseparateur <= (droite() ? 0 : hauteurbarre);
}

/// Shown lists are laid anew at every size: what they had in a tile or an icon says nothing of a larger window.
void DispositionTextes::changetaille(int largeur, int hauteur, const MesuresTextes& mesures) {
    largeur_ = std::max(0, largeur);
    hauteur_ = std::max(0, hauteur);
    mesures_ = mesures;
    panneauvoulu_ = panneauvoulu_ && petite();
    if (listesplacees())
        posseparateurlisteh = hautdeslistes_.place(hauteur_, hautdutexte(), mesures_);
}

void DispositionTextes::commence() {
    arrangement = Arrangement::ACote;
    posseparateur = largeurpremiere;
}

void DispositionTextes::charge(bool listeselectionvisible) {
    if (listeselectionvisible)
        return;
    if (droite()) {
        if (posseparateur == 0)
            posseparateur = positionlaterale;
    } else if (posseparateur <= hauteurbarre) {
        posseparateur = positionhaute;
    }
}

void DispositionTextes::plie() {
    panneauvoulu_ = false;
    posseparateur = droite() ? 0 : hauteurbarre;
}

void DispositionTextes::deplie(Bloc bloc) {
    const int etendue = droite() ? posseparateur : posseparateur - hauteurbarre;
    const int commode = droite() ? largeurcommode : bloc == Bloc::Recherche ? hauteurligne : hauteurcommode;
    panneauvoulu_ = petite();
    if (etendue < commode)
        posseparateur = placehabituelle();
}

void DispositionTextes::changearrangement(Arrangement nouveau) {
    const bool etaitreplie = replie();
    arrangement = nouveau;
    if (etaitreplie)
        plie();
    else
        deplie(Bloc::Arbre);
}

int DispositionTextes::placehabituelle() const {
    if (droite())
        return std::max(positionlaterale, std::min(largeurhabituelle, deuxcinquiemes(largeur_)));
    return hauteurbarre + std::max(hauteurligne, (hauteur_ - mesures_.barre) / 3);
}

void DispositionTextes::prendplacehabituelle() {
    panneauvoulu_ = petite();
    posseparateur = placehabituelle();
}

void DispositionTextes::ouvrelistes(int besoin) {
    hautdeslistes_.demande(besoin, listesvisibles);
    listesvisibles = true;
    hauteurauxlistes_ = hauteur_;
    if (!hautdeslistes_.deplaces())
        posseparateurlisteh = hautdeslistes_.place(hauteur_, hautdutexte(), mesures_);
}

void DispositionTextes::fermelistes() {
    listesvisibles = false;
    hautdeslistes_.oublie();
}

/// The line of the search above the text; a block that is higher than a line is there in windows of any height.
bool DispositionTextes::panneauvisible() const {
    return !petite() || panneauvoulu_ || (!droite() && posseparateur - hauteurbarre >= hauteurcommode);
}

/// Of the panel above the text, where both have this height together.
int DispositionTextes::hauteurpanneau(int hauteur) const {
    if (!panneauvisible())
        return 0;
    const int voulue = posseparateur - hauteurbarre;
    const int reste = hauteur - mesures_.trait - std::min(hauteurtexte, hauteur / 2);
    const int bloc = hauteurbloc > 0 ? std::min(voulue, std::max(hauteurbloc, hauteurligne)) : voulue;
    return std::clamp(bloc, 0, std::max(0, reste));
}

/// Upper edge of the text while the lists are closed.
int DispositionTextes::hautdutexte() const {
    const int haut = std::min(mesures_.barre, hauteur_);
    if (droite() || !panneauvisible())
        return haut;
    return haut + hauteurpanneau(std::max(0, hauteur_ - mesures_.trait - mesures_.entete - haut)) + mesures_.trait;
}

QRect DispositionTextes::rect(int gauche, int haut, int largeur, int hauteur) const {
    const int x = std::clamp(gauche, 0, largeur_);
    const int y = std::clamp(haut, 0, hauteur_);
    return {x, y, std::clamp(gauche + largeur - x, 0, largeur_ - x), std::clamp(haut + hauteur - y, 0, hauteur_ - y)};
}

void DispositionTextes::deplaceseparateur() {
    const int haut = std::min(mesures_.barre, hauteur_);
    const int hauteur = std::max(0, places_.separateurlisteh.top() - haut);
    const int trait = mesures_.trait;
    if (droite()) {
        const int reste = largeur_ - trait - std::min(largeurtexte, largeur_ / 2);
        const int voulue =
            posseparateur == largeurpremiere ? std::min(posseparateur, deuxcinquiemes(largeur_)) : posseparateur;
        const int x = panneauvisible() ? std::clamp(voulue, 0, std::max(0, reste)) : 0;
        places_.panneau = rect(0, haut, x, hauteur);
        places_.separateur = rect(x, haut, trait, hauteur);
        places_.rtfRichTextBox1 = rect(x + trait, haut, largeur_ - x - trait, hauteur);
        places_.panneaulisible = x >= largeurlisible && hauteur > 0;
        return;
    }
    const int y = hauteurpanneau(hauteur);
    const int ligne = panneauvisible() ? std::min(trait, hauteur - std::min(y, hauteur)) : 0;
    places_.panneau = rect(0, haut, largeur_, y);
    places_.separateur = rect(0, haut + y, largeur_, ligne);
    places_.rtfRichTextBox1 = rect(0, haut + y + ligne, largeur_, hauteur - y - ligne);
    places_.panneaulisible = y >= hauteurlisible;
}

void DispositionTextes::replaceseparateur() {
    if (posseparateurlistev > largeur_)
        posseparateurlistev = largeur_ / 2;
    if (listesplacees()) {
        posseparateurlisteh = std::min(posseparateurlisteh, hauteur_ - 660 - 120);
        if (posseparateurlisteh < 60)
            posseparateurlisteh = 240;
    } else {
        posseparateurlisteh = hauteur_ - hauteurtrait() - hauteurentete();
    }
    placelistes();
    deplaceseparateur();
}

void DispositionTextes::placelistes() {
    const int barre = std::min(mesures_.barre, hauteur_);
    const int plusbas = std::max(barre, hauteur_ - hauteurtrait() - hauteurentete());
    const int haut = std::clamp(posseparateurlisteh, barre, plusbas);
    const int entete = haut + hauteurtrait();
    const int grille = entete + hauteurentete();
    const int trait = std::min(mesures_.trait, largeur_);
    const int x = std::clamp(posseparateurlistev, 0, largeur_ - trait);
    const int reste = largeur_ - x - trait;
    places_.separateurlisteh = rect(0, haut, largeur_, hauteurtrait());
    places_.entetelistedesliens = rect(0, entete, x, hauteurentete());
    places_.separateurlistev = rect(x, entete, trait, hauteur_ - entete);
    places_.entetelistedescorrelats = rect(x + trait, entete, reste, hauteurentete());
    const int hauteurgrille = listesplacees() ? hauteur_ - grille : 0;
    places_.flexlistedesliens = rect(0, grille, x, hauteurgrille);
    places_.flexlistedescorreles = rect(x + trait, grille, reste, hauteurgrille);
}

bool DispositionTextes::lache(const QString& source, const QPoint& coin) {
    if (source == u"separateur") {
        panneauvoulu_ = petite();
        hauteurbloc = 0;
        posseparateur = std::max(0, droite() ? coin.x() : coin.y() - mesures_.barre + hauteurbarre);
        deplaceseparateur();
        return true;
    }
    if (source == u"separateurlisteh") {
        hautdeslistes_.lache(coin.y(), hauteur_);
        posseparateurlisteh = coin.y();
    } else if (source == u"separateurlistev") {
        posseparateurlistev = coin.x();
    } else {
        return false;
    }
    replaceseparateur();
    return true;
}

int widthblocrecherche(int largeur) {
    constexpr int marges = 180;
    return largeur > marges ? largeur - marges : 0;
}

int Heightblocrecherche(int hauteur, int champs) {
    return hauteur > champs ? hauteur - champs : 0;
}

QRect pixelsdetwips(const QRect& twips) {
    const auto pixel = [](int t) { return (t + twipsPerPixel / 2) / twipsPerPixel; };
    const int x = pixel(twips.x());
    const int y = pixel(twips.y());
    return {x, y, pixel(twips.x() + twips.width()) - x, pixel(twips.y() + twips.height()) - y};
}

} // namespace velm
