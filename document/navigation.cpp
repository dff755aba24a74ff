#include "document/navigation.h"

#include "core/tablereglages.h"
#include "document/commandenavigation.h"
#include "platform/text/number.h"

#include <utility>
#include <variant>

namespace velm {
namespace {

using namespace Qt::Literals::StringLiterals;

/// The list that a move takes from and the one that it fills.
struct Listes {
    ListeHistorique& source;
    ListeHistorique& cible;
};

/// The document shown goes into the list of the other direction.
void quitte(const Parcours& parcours, ListeHistorique& cible) {
    cible.ajoute(parcours.referencecourante, QString(), parcours.titrecourant);
}

/// With no document on record the window loads the next one, even if it is the same.
void oublie(Parcours& parcours) {
    parcours.referencecourante.clear();
    parcours.titrecourant.clear();
}

/// One entry from the top of one list to the top of the other.
void deplace(const Listes& listes, const QString& suffixe) {
    listes.cible.ajoute(listes.source.cle(), suffixe, listes.source.titre());
    listes.source.retire();
}

/// The document that is left goes on top of the back list.
bool pousse(Parcours& parcours, const QString& cle) {
    if (parcours.referencecourante.isEmpty() || parcours.referencecourante == cle)
        return false;
    quitte(parcours, parcours.historique.precedent);
    return true;
}

/// Whether a window has the document on its screen, and the whole of it.
bool montree(LectureNavigable& lecture, const Cle& cle) {
    return lecture.parcours().referencecourante == cle.texte() && lecture.entiere();
}

bool enhaut(const ListeHistorique& liste, const QString& cle) {
    return !liste.vide() && liste.cle() == cle;
}

} // namespace

Navigation::Navigation(HoteNavigation& hote, Corpus& corpus) : hote_(hote), corpus_(corpus) {}

void Navigation::navigue(const QString& commande, bool replier, const QString& ancre) {
    const CommandeNavigation lue = litcommande(commande);
    if (const auto* ouverture = std::get_if<CommandeOuvre>(&lue))
        ouvre(ouverture->cle, {replier, ancre});
    else if (const auto* global = std::get_if<CommandePas>(&lue))
        pas(global->sens, global->n);
    else if (const auto* locale = std::get_if<CommandePasFenetre>(&lue))
        pasfenetre(locale->indice, locale->sens, locale->n);
    else
        rafraichit(0); // the buttons are looked at whatever was asked for
}

void Navigation::ouvre(const Cle& cle, const OptionsOuverture& options) {
    montre(cle, options);
    rafraichit(cle.indice());
}

void Navigation::pas(Sens sens, int n) {
    rafraichit(marche(sens, n));
}

void Navigation::pasfenetre(int indice, Sens sens, int n) {
    marchefenetre(indice, sens, n);
    rafraichit(indice);
}

void Navigation::montre(const Cle& cle, const OptionsOuverture& options) {
    const int indice = cle.indice();
    Emplacement* place = emplacement(indice);
    if (cle.vide() || !place)
        return;
    if (options.replier)
        place->replier = true;
    if (!place->cochee || !maffichagetfu_)
        assurefenetre(indice);
    // What a window does when it takes the focus or shows a document may close it.
    if (place->fenetre)
        place->fenetre->prendfocus();
    if (place->fenetre && !montree(place->fenetre->lecture(), cle))
        place->fenetre->lecture().affiche(cle, options.ancre);
    if (!place->fenetre)
        return;
    place->fenetre->barrechild().montreboutons(hote_.dossiersouverts());
    memoriser(cle, place->fenetre->lecture().titre());
}

void Navigation::memoriser(const Cle& document, const QString& titre) {
    const QString cle = document.texte();
    const int indice = document.indice();
    const Emplacement* place = emplacement(indice);
    if (!place)
        return;
    if (cle != derniersdocuments_.front())
        retientdernier(cle, document.code + u'-' + titre);
    Parcours* parcours = place->fenetre ? &place->fenetre->lecture().parcours() : nullptr;
    if (!enhaut(global_.historique.precedent, cle)) {
        pousse(global_, cle);
        if (parcours && !enhaut(parcours->historique.precedent, cle))
            pousse(*parcours, cle);
    }
    for (Parcours* celui : {&global_, parcours}) {
        if (celui) {
            celui->referencecourante = cle;
            celui->titrecourant = titre;
        }
    }
    rafraichit(indice);
}

void Navigation::retientdernier(const QString& cle, const QString& libelle) {
    Derniers documents{cle};
    Derniers libelles{libelle};
    std::size_t libre = 1;
    // The last entry is lost even where the document was listed already: the list gets shorter by one then.
    for (std::size_t rang = 0; rang + 1 < derniersdocuments_.size(); ++rang) {
        if (derniersdocuments_[rang] == cle)
            continue;
        documents[libre] = derniersdocuments_[rang];
        libelles[libre] = derniersdocumentslibelles_[rang];
        ++libre;
    }
    derniersdocuments_ = documents;
    derniersdocumentslibelles_ = libelles;
    hote_.majderniersdocuments();
}

// ---- histories

void Navigation::marchefenetre(int indice, Sens sens, int n) {
    const Emplacement* place = emplacement(indice);
    if (!place || !place->fenetre)
        return;
    Parcours& parcours = place->fenetre->lecture().parcours();
    auto& [precedent, suivant] = parcours.historique;
    const Listes listes = sens == Sens::Arriere ? Listes{precedent, suivant} : Listes{suivant, precedent};
    if (listes.source.vide())
        return;
    quitte(parcours, listes.cible);
    for (int rang = 1; rang < n && listes.source.nombre() > 1; ++rang)
        deplace(listes, QString());
    const QString cle = listes.source.cle();
    listes.source.retire();
    oublie(parcours);
    montre(decoupecle(cle), {});
}

/// Gives the slot of the document that is reached; 0 when there is none.
int Navigation::marche(Sens sens, int n) {
    const auto listesde = [sens](Parcours& parcours) {
        auto& [precedent, suivant] = parcours.historique;
        return sens == Sens::Arriere ? Listes{precedent, suivant} : Listes{suivant, precedent};
    };
    const Listes listes = listesde(global_);
    if (listes.source.vide())
        return 0;
    quitte(global_, listes.cible);
    for (int rang = 1; rang < n && listes.source.nombre() > 1; ++rang)
        deplace(listes, listes.source.suffixe());
    const QString cle = listes.source.cle();
    listes.source.retire();
    oublie(global_);

    const Cle document = decoupecle(cle);
    const int indice = document.indice();
    const Emplacement* place = emplacement(indice);
    if (!place)
        return indice;
    if (!place->cochee)
        assurefenetre(indice);
    else if (place->fenetre)
        place->fenetre->prendfocus();
    if (!place->fenetre)
        return indice;

    // The window's list follows by one step, whatever stands on its top; a jump walks it to the document.
    Parcours& parcours = place->fenetre->lecture().parcours();
    const Listes siennes = listesde(parcours);
    quitte(parcours, siennes.cible);
    if (n != unpas && siennes.source.contient(cle)) {
        while (siennes.source.cle() != cle)
            deplace(siennes, siennes.source.suffixe());
    }
    siennes.source.retire();
    oublie(parcours);
    montre(document, {});
    return indice;
}

void Navigation::rafraichitglobal() {
    hote_.activehistorique(!global_.historique.precedent.vide(), !global_.historique.suivant.vide());
}

void Navigation::rafraichit(int indice) {
    rafraichitglobal();
    if (FenetreNavigable* celle = fenetre(indice)) {
        const Historique& historique = celle->lecture().parcours().historique;
        celle->barrechild().activehistorique(!historique.precedent.vide(), !historique.suivant.vide());
    }
}

// ---- windows

Navigation::Emplacement* Navigation::emplacement(int indice) {
    return indice >= 0 && indice < nombredecollections ? &emplacements_[static_cast<std::size_t>(indice)] : nullptr;
}

const Navigation::Emplacement* Navigation::emplacement(int indice) const {
    return indice >= 0 && indice < nombredecollections ? &emplacements_[static_cast<std::size_t>(indice)] : nullptr;
}

void Navigation::ouvrefenetre(int indice) {
    Emplacement* place = emplacement(indice);
    FenetreNavigable* nouvelle = place ? hote_.creefenetre(indice) : nullptr;
    if (!nouvelle)
        return;
    place->fenetre = nouvelle;
    place->ouverte = true;
    place->cochee = true;
    hote_.slotchange(indice, true);
}

/// Where one window serves a collection, a hidden one is shown again rather than a second one made.
void Navigation::assurefenetre(int indice) {
    const Emplacement* place = emplacement(indice);
    if (place && maffichagetfu_ && place->ouverte && place->fenetre)
        basculefenetre(indice, true);
    else
        ouvrefenetre(indice);
}

void Navigation::basculefenetre(int indice, bool visible) {
    Emplacement* place = emplacement(indice);
    if (!place)
        return;
    if (!place->ouverte || !place->fenetre) {
        if (visible)
            ouvrefenetre(indice);
        return;
    }
    place->cochee = visible;
    hote_.montrefenetre(indice, visible);
    hote_.slotchange(indice, visible);
}

void Navigation::fermee(int indice, const FenetreNavigable* fenetre) {
    Emplacement* place = emplacement(indice);
    if (!place)
        return;
    place->ouverte = false;
    place->cochee = false;
    if (place->fenetre == fenetre)
        place->fenetre = nullptr;
    hote_.slotchange(indice, false);
}

FenetreNavigable* Navigation::fenetre(int indice) const {
    const Emplacement* place = emplacement(indice);
    return place ? place->fenetre : nullptr;
}

bool Navigation::fenetreouverte(int indice) const {
    return indice >= 0 && indice < nombredefenetres && emplacements_[static_cast<std::size_t>(indice)].ouverte;
}

bool Navigation::maffichagef(int indice) const {
    return indice >= 0 && indice < nombredefenetres && emplacements_[static_cast<std::size_t>(indice)].cochee;
}

void Navigation::indexouvert(bool ouvert) {
    Emplacement& index = emplacements_.back();
    index.ouverte = ouvert;
    index.cochee = ouvert;
    hote_.slotchange(nombredefenetres - 1, ouvert);
}

bool Navigation::prendreplier(int indice) {
    Emplacement* place = emplacement(indice);
    return place && std::exchange(place->replier, false);
}

// ---- neighbours and last documents

void Navigation::voisin(FenetreNavigable& fenetre, const QString& code, bool haut) {
    const Parcours& parcours = fenetre.lecture().parcours();
    Recordset& donnees = corpus_.donnees();
    donnees.setIndex(u"icattitre"_s);
    donnees.seek(Seek::Equal, code, parcours.titrecourant, parcours.cle().numero);
    bool fin = donnees.noMatch();
    if (!fin) {
        if (haut)
            donnees.movePrevious();
        else
            donnees.moveNext();
        fin = donnees.bof() || donnees.eof() || donnees.text(u"référence"_s) != code;
    }
    if (fin) {
        fenetre.barrechild().activevoisin(haut, false);
        return;
    }
    const qint64 numero = roundHalfEven(val(donnees.text(u"numart"_s)));
    ouvre({code, sixchiffres(numero)});
}

void Navigation::chargederniers(const Reglages& reglages) {
    for (int rang = 0; rang < nombrederniers; ++rang) {
        derniersdocumentslibelles_[static_cast<std::size_t>(rang)] = reglages.lit(reglage::derniernom[rang]);
        derniersdocuments_[static_cast<std::size_t>(rang)] = reglages.lit(reglage::dernierref[rang]);
    }
}

void Navigation::sauvederniers(Reglages& reglages) const {
    ReglagesStore::Batch ensemble(reglages.magasin());
    for (int rang = 0; rang < nombrederniers; ++rang) {
        reglages.ecrit(reglage::derniernom[rang], derniersdocumentslibelles_[static_cast<std::size_t>(rang)]);
        reglages.ecrit(reglage::dernierref[rang], derniersdocuments_[static_cast<std::size_t>(rang)]);
    }
    if (!ensemble.commit())
        reglages.signaleechec();
}

} // namespace velm
