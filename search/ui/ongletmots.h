#pragma once
// The tab of the search by words: a line of words, which are completed as they are typed, and what became of each.
#include "core/texte.h"
#include "search/etatformulaire.h"
#include "search/ui/pagerecherche.h"

class QCheckBox;
class QListWidget;

namespace velm {

class CompletionMots;

class OngletMots final : public PageRecherche {
    Q_OBJECT

public:
    /// `corpus` gives the words and is not owned.
    OngletMots(const Libelles& texte, Corpus& corpus);

    QLineEdit& champ() const override;
    BoiteDerniers& boite() const { return *Textedico_; }
    /// Puts what stands in the tab into a state, and back.
    void lit(EtatFormulaire& etat) const;
    void montre(const EtatFormulaire& etat);
    void montremots(const QString& mots);

    /// The list of what became of each word, which wants the height that is left below pied().
    QWidget& suite() const { return *suite_; }
    void videresultat();
    void ajouteresultat(const QString& ligne);
    /// Words that are offered go.
    void renonce();

signals:
    /// A line of the result was clicked, or the Return key pressed on it.
    void lignechoisie(const QString& ligne);

private:
    BoiteDerniers* Textedico_ = nullptr;
    CompletionMots* completion_ = nullptr;
    QCheckBox* checkandordico_ = nullptr;
    QComboBox* Combonombredico_ = nullptr;
    QWidget* suite_ = nullptr;
    QListWidget* resultat_ = nullptr; ///< seen once it has lines
};

} // namespace velm
