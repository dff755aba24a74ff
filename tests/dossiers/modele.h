#pragma once
// The tree of the dossiers and its save written down step by step, with plain vectors: what ArbreDossiers must agree
// with.
#include "modeletables.h"

#include <memory>

namespace velm::test {

struct NoeudModele {
    QString cle;
    QString texte;
    QString image;
    QString choisie;
    QString tag;
    NoeudModele* parent = nullptr;
    std::vector<std::unique_ptr<NoeudModele>> enfants;

    qint64 numero() const { return valeur(cle.mid(2)); }
    std::size_t place() const;
    NoeudModele* suivant() const;
    NoeudModele* precedent() const;
    bool sous(const NoeudModele* autre) const; ///< or the same
};

class ModeleArbre {
public:
    explicit ModeleArbre(TablesModele& tables) : tables_(tables) {}

    void chargement(); ///< the whole of a window's load, without expanding
    void chargearbre();
    void developperbranche(NoeudModele& noeud);
    void developpe(NoeudModele& noeud);
    void toutdevelopper();

    NoeudModele& ajoute(NoeudModele& parent);
    void renomme(NoeudModele& noeud);
    void marquersuppression(NoeudModele& noeud, bool marquer);
    bool deplace(NoeudModele& noeud, NoeudModele& cible);
    /// False at the end of the siblings.
    bool monte(NoeudModele& noeud);
    bool descend(NoeudModele& noeud);
    void modifierelements(NoeudModele& noeud, qint64 delta);
    void Sauvearbre();

    NoeudModele* noeud(const QString& cle) const;
    std::vector<NoeudModele*> tous() const; ///< each before what is below it
    QString dessin() const;

    std::unique_ptr<NoeudModele> racine;
    bool modifie = false;
    qint64 prochainnumero = 0;

private:
    NoeudModele& enfant(NoeudModele& parent, std::size_t place, const QString& cle, const QString& texte,
                        const QString& suite);
    bool reconstruit(NoeudModele& noeud, NoeudModele* voisin, std::size_t decalage);
    void decalechildren(const NoeudModele& noeud, NoeudModele& copie);
    void virerlesmarques(NoeudModele& noeud);
    void marquedeplacement(NoeudModele& noeud);
    void miseajourauplusbas(NoeudModele& noeud, bool& supprime);
    void sauvenoeud(NoeudModele& noeud);

    TablesModele& tables_;
    qint64 compteurordre_ = 0;
};

} // namespace velm::test
