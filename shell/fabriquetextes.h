#pragma once
// Makes document windows, and answers what they ask of the frame and of the search.
#include "core/cle.h"
#include "core/corpus.h"
#include "core/langue.h"
#include "core/reglages.h"
#include "document/styles.h"
#include "document/ui/contextetextes.h"
#include "shell/logique/seance.h"
#include "shell/mondeexterieur.h"

#include <array>

namespace velm {

class Bureau;
class ChildArea;
class Ecrangeneral;
class Selection;
class Textes;
class VoletSelection;

class FabriqueTextes final : private Voisinage, private AideMots {
public:
    /// None is owned; all outlive the windows, and so does what makes them.
    struct Donnees {
        Ecrangeneral& ecran;
        ChildArea& aire;
        VoletSelection& volet;
        Bureau& bureau;
        Selection& selection;
        Corpus& corpus;
        Reglages& reglages;
        Langue& langue;
        const TableStyles& styles;
        Seance& seance;
        const MondeExterieur& monde;
        std::array<bool, nombredefenetres>& rafraichir; ///< by slot: show the document again at the next focus
        std::function<void(Textes& fenetre)> faite;     ///< told of each window, before it is shown
    };
    explicit FabriqueTextes(const Donnees& donnees);

    /// The window of a slot, for the frame's area to take over.
    Textes* fait(int indice);

private:
    // ---- Voisinage
    bool listeselectionvisible() const override;
    bool dossiersouverts() const override;
    int formesouvertes() const override;
    void montremosaique(bool visible) override;
    PlaceTextes place(const QWidget& fenetre) const override;
    bool prendrafraichir(int indice) override;
    void dit(const QString& texte) override;

    // ---- AideMots
    Marquage marquage() const override;
    bool cherchable() const override { return true; }
    void cherche(const QString& code, const QString& mots, const Ecoute& ecoute, bool tous) override;
    void complete(QLineEdit& boite) override;

    Donnees donnees_;
};

} // namespace velm
