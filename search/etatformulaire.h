#pragma once
// The state of the search form without its controls: what a criteria file restores, and the items that its lists show.
#include "core/corpus.h"
#include "search/fichiercriteres.h"

#include <QStringList>

namespace velm {

/// The keywords of the collection as the criteria tab offers them. They are read when they are first needed.
class ListeMotsCles {
public:
    /// `tous` is the first item, which asks for none.
    explicit ListeMotsCles(const QString& tous) : items_{tous} {}

    const QStringList& items() const { return items_; }
    /// Adds the keywords, in the order of their table, at the first call only.
    void lirelesmotscles(Corpus& corpus);
    /// Whether a file's keyword can only be found in the list once it has been read.
    bool manque(const FichierCriteres& fichier) const { return !lus_ && fichier.combomotcle != items_.first(); }

private:
    QStringList items_;
    bool lus_ = false;
};

/// The items of three lists as they stand on the screen, the first of each included.
struct ItemsFormulaire {
    QStringList combomotcle;
    QStringList combotype; ///< the kinds of document behind the first item
    QStringList conjonction;
};

struct EtatFormulaire {
    static constexpr int onglets = 3;
    static constexpr int limites = 3;
    static constexpr int toutes = limites; ///< no entry of a limit list: all, without a question

    int ongletrecherche = 0;
    QString Textedico;
    bool checkandordico = true;
    int Combonombredico = 0;
    QString texterapide;
    int combonombre = 0;
    Criteres criteres;
    std::array<bool, nombredecollections> boutons{};

    friend bool operator==(const EtatFormulaire&, const EtatFormulaire&) = default;
};

/// Everything that is saved: the form, the columns and rows of the list.
FichierCriteres fichierde(const EtatFormulaire& etat, const ItemsFormulaire& items, const ListeSelection& liste);

/// The form as a file has it. An item that its list does not hold, and a number that stands for no item, give the first
/// one; the negation, which is not in the file, stays `prefixe`.
EtatFormulaire etatde(const FichierCriteres& fichier, const ItemsFormulaire& items, int prefixe);

/// The row of an item; the first for one that is not there.
int rangditem(const QStringList& items, const QString& texte);

} // namespace velm
