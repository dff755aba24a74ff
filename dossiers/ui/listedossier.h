#pragma once
// The items of a dossier, in the arrangement that the user has chosen.
#include "core/corpus.h"
#include "core/texte.h"
#include "platform/widgets/list/listview.h"

#include <QHash>

namespace velm {

class Toolbar;

class ListeDossier final : public ListView {
    Q_OBJECT

public:
    /// The collection is not owned.
    ListeDossier(Corpus& corpus, Libelles texte, QWidget* parent);

    /// What is said in place of the items of an empty dossier.
    const QString& vide() const { return vide_; }
    /// The buttons of the arrangements, one of which is down.
    void relie(Toolbar& barre);
    /// Whether the document of an item is missing from the collection.
    bool absent(const QString& cle) const;
    QString infobulle(int index) const;

protected:
    void paintEvent(QPaintEvent* evenement) override;

private:
    Corpus& corpus_;
    Libelles texte_;
    QString vide_; ///< what an empty dossier says
    mutable QHash<Cle, bool> absents_;
};

} // namespace velm
