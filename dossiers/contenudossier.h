#pragma once
// The items of the selected dossier, as the list shows them: the key of an entry is the whole identity of its row, its
// text the title, with a word in brackets behind that of an extract. What is done to an item is in the store at once.
// Rows are looked for by document and place, in whatever dossier: of the same document at the same place in two of
// them, the first one in the store is the one that is found.
#include "dossiers/cleelement.h"
#include "dossiers/magasin.h"
#include "dossiers/temoindossiers.h"
#include "platform/controls/listitems.h"

namespace velm {

class ContenuDossier {
public:
    /// None is owned. `libelleextrait`: the word behind the title of an extract.
    ContenuDossier(Magasin& magasin, ListItems& elements, QString libelleextrait);

    /// Who hears of changes; not owned, may be null.
    void ecoute(TemoinDossiers* temoin) { temoin_ = temoin; }
    /// The current row of the items.
    static RangeeRangee rangee(const Magasin& magasin);
    /// Sets all fields of the row that is being edited.
    static void ecritrangee(const Magasin& magasin, const RangeeRangee& rangee);
    /// Changes the stored count of a dossier, if it has a row. False where a table says no.
    static bool changecompte(const Magasin& magasin, qint64 dossier, qint64 delta);

    /// Lists the items of a dossier in their order.
    void liste(qint64 numero);

    /// " [extrait]" for the positions of one, else nothing.
    QString suffixe(const Extrait& extrait) const;
    /// Adds an item that waits to be stored, under the first place whose key the list does not have.
    void ajouteenattente(const ElementEnAttente& element);

    struct Fait {
        EchecEcriture echec;
        bool trouve = false; ///< false: nothing was changed
    };
    /// Stores a title as typed. `texte` comes back as the list is to show it.
    Fait renomme(int index, QString& texte);
    /// The bare title of an entry, for its editing.
    QString titrenu(int index) const;
    /// Deletes an item, lowers the stored count of the dossier, and takes it off the list.
    Fait supprime(int index, qint64 dossier);
    /// Exchanges two items of the list, rows and entries; `j` is beside `i`. The first one is selected.
    Fait echange(int i, int j);
    /// Stores a waiting item in a dossier, at its first free place, from 1.
    EchecEcriture range(const ElementEnAttente& element, qint64 dossier);
    /// Moves the row of an item to a dossier, at the first place that is free there, and takes it off the list, in any
    /// case. That of an extract is not found: it stays where it was. `liste`: the dossier that is listed, for who hears
    /// of it.
    Fait deplace(int index, qint64 dossier, qint64 liste = 0);
    /// Stores what a file brings: keys and texts as they stand there, at the places 1, 2… of a dossier.
    using Paires = std::vector<std::pair<QString, QString>>;
    EchecEcriture importe(const Paires& paires, qint64 dossier);
    /// Lists them as they stand there; of equal keys the first one is shown.
    void montre(const Paires& paires);

private:
    bool trouve(const QString& cle, qint64 noordre) const;
    Fait faitsur(int index, const std::function<bool(Changements&)>& travail) const;
    bool inversercontenuordre(int i, int j, bool& trouve, Changements& changements);
    bool placelibre(qint64 dossier, qint64 noordre, Bookmark sienne) const;
    bool trouvedelaqueue(const QString& cle) const;
    bool ajouterangee(const RangeeRangee& rangee) const;

    Magasin& magasin_;
    ListItems& elements_;
    QString libelleextrait_;
    TemoinDossiers* temoin_ = nullptr;
};

} // namespace velm
