#pragma once
// The start page, seen while no window is open: a sheet in the middle of the frame with a search field, the collections
// and the documents that were read last. While something stands in the field, what is found takes the place of the
// rest.
#include "core/cle.h"
#include "core/texte.h"
#include "shell/logique/pagedepart.h"
#include "shell/reponsedepart.h"

#include <QScrollArea>

#include <functional>
#include <optional>
#include <vector>

class QLineEdit;

namespace velm {

class GroupeDepart;
class NoteLine;

class VueDepart final : public QScrollArea {
    Q_OBJECT

public:
    struct Source {
        std::function<PageDepart()> page;         ///< asked each time the page is seen
        std::function<qint64(int indice)> nombre; ///< of a collection's documents: asked once, when it has been painted
    };
    VueDepart(const Libelles& texte, Source source, QWidget* parent = nullptr);

    /// What was found for the text of the field. `entout`: how many there are, as soon as that is known.
    void montretrouves(const std::vector<DocumentTrouve>& trouves, std::optional<qint64> entout);
    QString cherche() const;

    QLineEdit& champ() const { return *champ_; }
    GroupeDepart& collections() const { return *collections_; }
    GroupeDepart& derniers() const { return *derniers_; }
    GroupeDepart& trouves() const;

signals:
    void collectionvoulue(int indice);
    void derniervoulu(int rang);
    void documentvoulu(const velm::Cle& cle);
    void tapee(const QString& texte);       ///< another text stands in the field; empty for none
    void listevoulue(const QString& texte); ///< all that is found, in the list
    void recherchevoulue();                 ///< the search form
    void vue();                             ///< it can be seen now
    void peinte();                          ///< for the first time
    void cachee();

protected:
    void showEvent(QShowEvent* evenement) override;
    void hideEvent(QHideEvent* evenement) override;
    void resizeEvent(QResizeEvent* evenement) override;
    bool eventFilter(QObject* objet, QEvent* evenement) override;

private:
    QWidget* feuille();
    QWidget* pageordinaire();
    void relie();
    void remplit(const PageDepart& page);
    void montrenombres();
    void suitchamp(const QString& texte);
    void choisitpage(bool ordinaire);
    void descend();
    void sort(const GroupeDepart* groupe, bool versbas);
    void dispose();
    void disposemarges();

    Libelles texte_;
    Source source_;
    bool comptees_ = false; ///< the numbers of documents stand there, or will soon
    QLineEdit* champ_ = nullptr;
    QWidget* feuille_ = nullptr;
    QWidget* ordinaire_ = nullptr; ///< one of these two is seen below the field
    ReponseDepart* reponse_ = nullptr;
    GroupeDepart* collections_ = nullptr;
    GroupeDepart* derniers_ = nullptr;
    NoteLine* sansderniers_ = nullptr;
    std::vector<int> rangs_; ///< of the last documents that are shown
};

} // namespace velm
