#pragma once
// A window that lists the documents of the collections whose buttons are down in its bar. What makes one list another
// is its description, and reselect(), which fills it. What takes long is done in slices between which the window
// answers.
#include "core/corpus.h"
#include "document/ui/fenetreliste.h"
#include "search/sourceentours.h"
#include "search/typeschoisis.h"

#include <QElapsedTimer>
#include <QTimer>

#include <optional>
#include <utility>

class QProgressBar;
class QShortcut;

namespace velm {

struct ContexteTypes {
    ContexteListe liste;
    Corpus& corpus;
};

struct DescriptionTypes {
    DescriptionListe liste;
    ReglageTexte statut; ///< where the buttons are kept
};

class FenetreTypes : public FenetreListe {
    Q_OBJECT

public:
    FenetreTypes(const DescriptionTypes& description, const ContexteTypes& contexte, QWidget* parent = nullptr);
    ~FenetreTypes() override;

    const TypesChoisis& types() const { return types_; }
    /// Fills the list with the documents of these collections; each press of a button of the bar does it.
    virtual void reselect() = 0;
    /// Something is being filled or sorted.
    bool encours() const { return ouvrage_ != nullptr; }

    void actualise() override { reselect(); }
    // Very many rows are gone through in slices; the escape key stops that, and then nothing has changed. A sort or a
    // filling that goes on comes first.
    void copie() override;
    void copielignes() override;
    void selectionne() override;
    void ecritreglages() override;
    void decharge() override;

protected:
    Corpus& corpus() const { return corpus_; }
    /// Shows these rows once they are there, in the order in which the list is sorted, and then the list itself. What
    /// was being done is left. Null for a list of nothing: the grid hides.
    void prend(std::unique_ptr<SourceDocuments> source);
    /// The rows of the last prend() are there, in the order of the base.
    virtual void avantordre(const SourceDocuments& source) { Q_UNUSED(source) }
    /// They are shown.
    virtual void rempli() {}
    void trie(int place) override;

private:
    static DescriptionListe avectypes(const DescriptionTypes& description, const ContexteTypes& contexte);
    void relietypes();
    void presse(const QString& bouton);
    void montretypes();
    void construitprogres();
    SourceEnTours* entours(SourceDocuments* source) const;

    /// What is to be done once the work is.
    void commence(std::unique_ptr<Ouvrage> ouvrage, std::function<void()> suite);
    void tranche();
    void fini();
    void laisse();
    void triealors();
    /// What is done with very many rows: `chaque` with each, and `suite` behind the last. `pendant` is said meanwhile.
    void parcourt(std::pair<int, int> lignes, std::function<void(int ligne)> chaque, Texte pendant,
                  std::function<void()> suite);
    void copiees(int lignes, const std::function<void()>& pose);
    bool attend(void (FenetreTypes::*acte)());
    std::function<QStringList(int ligne)> cellules(bool cachees) const;
    void montresource();

    Corpus& corpus_;
    ReglageTexte statut_;
    TypesChoisis types_;
    QProgressBar* progres_;
    std::unique_ptr<SourceDocuments> source_; ///< not shown yet
    std::unique_ptr<Ouvrage> ouvrage_;        ///< on `source_`, or on the source that is shown: goes before both
    std::function<void()> suite_;
    std::optional<Texte> parcours_; ///< `ouvrage_` goes through the rows that are shown, and this is said meanwhile
    bool parcoursdit_ = false;      ///< it took long enough for that
    std::function<void()> ensuite_; ///< waits for the end of `ouvrage_`
    QShortcut* echappe_;
    QElapsedTimer depuis_;
    QTimer tranches_;
};

} // namespace velm
