#pragma once
// What stands on the sheet of a document window before its first document: the picture and the name of the collection,
// how many documents it has, and the ways into it as links.
#include "document/dispositiontextes.h"

#include <QIcon>
#include <QWidget>

class QAbstractScrollArea;
class QLabel;

namespace velm {

class BoutonLien;
struct ContexteTextes;

/// It lies on the viewport of a view that it belongs to, which shows through, and has the focus in the view's place.
class Couverture final : public QWidget {
    Q_OBJECT

public:
    /// On the view of the window of a slot.
    Couverture(int indice, const ContexteTextes& contexte, QAbstractScrollArea& vue);
    /// Gives the focus back to the view, if it is here. The cover may be deleted then.
    void quitte();

signals:
    void voulu(velm::Bloc bloc); ///< the way into the collection that is wanted

protected:
    void paintEvent(QPaintEvent* evenement) override;
    void resizeEvent(QResizeEvent* evenement) override;
    void changeEvent(QEvent* evenement) override;
    bool eventFilter(QObject* objet, QEvent* evenement) override;

private:
    void ajoutelien(Bloc bloc, const QString& nom, const QString& image, const QString& texte);
    void prendfocus();
    void habille();
    void dispose();
    int placelibelles(int hauteurdesliens);

    QAbstractScrollArea& vue_;
    Qt::ScrollBarPolicy ascenseur_; ///< the view's own, to be given back to it with the first document
    QIcon image_;
    QRect placeimage_; ///< empty where there is no room for it
    QLabel* nom_;
    QLabel* nombre_;
    QList<BoutonLien*> liens_;
};

} // namespace velm
