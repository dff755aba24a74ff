#pragma once
// The selection list over a grid and a panel that only remember what they were told.
#include "search/controleliste.h"
#include "tests/search/recherche_support.h"
#include "tests/support/outside_script.h"

namespace velm::test {

class GrilleEssai final : public VueLignes {
public:
    void cache() override {
        montree = false;
        fige();
        ++caches;
        plusprofond = std::max(plusprofond, ++profondeur);
    }
    void fige() override { figee = true; }
    void relit() override { figee = false; }
    void montre(bool visible) override {
        EXPECT_FALSE(figee);
        montree = visible;
        profondeur = std::max(profondeur - 1, 0);
    }
    void montremarque(int colonne, ListeSelection::Marque marque) override {
        marques.at(static_cast<std::size_t>(colonne)) = marque;
    }
    void trie(int colonne, bool descendant) override { liste->trie(colonne, descendant); }
    void regroupe(bool regroupees) override { regroupee = regroupees; }
    std::pair<int, int> choix() const override { return choisies; }
    void choisit(int row, int rowsel) override { choisies = {row, rowsel}; }
    void choisittout() override { choisies = {1, liste->lignes()}; }
    QString copie() const override { return u"%1-%2"_s.arg(choisies.first).arg(choisies.second); }
    int largeur(int colonne) const override { return largeurs.at(static_cast<std::size_t>(colonne)); }
    bool etroite() const override { return etroit; }

    ListeSelection* liste = nullptr;
    bool montree = true;
    bool figee = false;
    bool regroupee = false;
    bool etroit = false;
    int caches = 0;
    int profondeur = 0; ///< fillings that have begun and not ended
    int plusprofond = 0;
    std::pair<int, int> choisies;
    std::array<ListeSelection::Marque, ListeSelection::colonnesvisibles> marques{};
    std::array<int, ListeSelection::nombredecolonnes> largeurs{3000, 2000, 2000, 2000, 500, 1000, 0};
};

class PanneauEssai final : public VueListe {
public:
    void permet(Ordre ordre, bool permis) override {
        permis_[ordre] = permis;
        if (ordre == Ordre::SuivantRecherche)
            publications.push_back(permis);
    }
    void coche(Ordre ordre, bool cochee) override { enfonces[ordre] = cochee; }
    void infobulle(Ordre ordre, const QString& texte) override { bulles[ordre] = texte; }
    void ditetat(const QString& texte) override {
        etats << texte;
        if (surprise)
            surprise();
    }
    void ditbilan(const BilanRecherche& bilan) override { bilans.push_back(bilan); }
    void montrepanneau(bool visible) override { journal << (visible ? u"montre"_s : u"cache"_s); }
    void elargitpanneau() override { journal << u"élargit"_s; }
    void montrecriteres(bool montres) override {
        journal << (montres ? u"montre les critères"_s : u"cache les critères"_s);
    }
    void majdispositions() override { journal << u"dispositions"_s; }
    void ouvredocument(const QString& cle, const QString& mot1, const QString& mot2) override {
        ouverts << cle + u' ' + mot1 + u' ' + mot2;
    }

    bool permis(Ordre ordre) const { return permis_.value(ordre); }

    QStringList journal;
    QStringList etats;
    QStringList ouverts;
    std::vector<BilanRecherche> bilans; ///< what was said over the rows
    std::vector<bool> publications;     ///< of each end of a search: there was a result
    QHash<Ordre, bool> permis_;
    QHash<Ordre, bool> enfonces;
    QHash<Ordre, QString> bulles;
    /// Happens when something is said in the status panel.
    std::function<void()> surprise;
};

/// A list as at the next run of the program.
class AvecControle : public BaseRecherche {
protected:
    void demarre() {
        controle.reset();
        grille = {};
        panneau = {};
        reglages.emplace(magasin);
        controle = std::make_unique<ControleListe>(ControleListe::Services{{corpus, sablier, dialogues, textes,
                                                                            [this] {
                                                                                if (evenement)
                                                                                    evenement();
                                                                            },
                                                                            std::chrono::milliseconds(0)},
                                                                           *reglages,
                                                                           imprimante},
                                                   grille, panneau);
        grille.liste = &controle->liste();
        controle->charge();
    }
    RemplissageListe& remplissage() const { return controle->remplissage(); }

    GrilleEssai grille;
    PanneauEssai panneau;
    ImprimanteScript imprimante;
    ReglagesStore magasin{dossier.filePath(u"reglages.ini"_s)};
    std::optional<Reglages> reglages;
    std::unique_ptr<ControleListe> controle;
};

class ControleListeTest : public AvecControle {
protected:
    void SetUp() override {
        BaseRecherche::SetUp();
        documents = {{u"CO000001"_s, u"Béta"_s, {u"Vente"_s, u"Prix"_s, u"Taxe"_s}},
                     {u"CO000002"_s, u"alpha"_s},
                     {u"CO000003"_s, u"Delta"_s},
                     {u"CO000004"_s, u"gamma"_s},
                     {u"JP000007"_s, u"Un arrêt"_s}};
        mots = {{u"DEUX"_s, entree('A', 2) + entree('A', 4) + entree('C', 7)},
                {u"PRIX"_s, entrees(1, 4) + entree('C', 7)}};
        ouvre();
        demarre();
    }

    void remplit(const QStringList& cles = {u"CO000001"_s, u"CO000002"_s, u"CO000003"_s, u"CO000004"_s,
                                            u"JP000007"_s}) {
        remplissage().remplitdecles(cles);
    }

    QStringList colonne(ListeSelection::Champ champ) const {
        QStringList tous;
        for (int rang = 1; rang < controle->liste().rows(); ++rang)
            tous << controle->liste().champ(rang, champ);
        return tous;
    }
    QString bilandit() const { return panneau.bilans.empty() ? QString() : panneau.bilans.back().phrase; }
    QString etatdit() const { return panneau.etats.value(panneau.etats.size() - 1); }
};

} // namespace velm::test
