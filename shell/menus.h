#pragma once
// The menu bar: one for the frame and its document windows, which it serves as the active one needs.
#include "shell/logique/barres.h"

#include <QIcon>
#include <QKeySequence>
#include <QMap>
#include <QObject>

#include <functional>

class QAction;
class QActionGroup;
class QMenu;
class QMenuBar;

namespace velm {

/// How a menu entry looks.
struct FormeEntree {
    QString image = {};
    bool cochable = false;
    bool inactive = false; ///< waits for what it commands
};

class MenusEcran final : public QObject {
    Q_OBJECT

public:
    /// Fills a menu bar. `texte` gives a text by its number, `image` a picture by its name.
    MenusEcran(QMenuBar& barre, const std::function<QString(int)>& texte,
               const std::function<QIcon(const QString&)>& image);

    /// An entry by its name, with the index behind it in parentheses for arrays: "mfichier3", "maide0(1)". Asserted.
    QAction* entree(const QString& nom) const;
    QAction* entree(const QString& tableau, int indice) const;

    /// The pop-up of a bar: its five choices.
    QMenu* menudebarre(Barre barre) const;
    /// Checks the position of a bar, and no other, in the menu bar and in its pop-up.
    void cocheposition(Barre barre, int position);

    /// Shows the entries of documents when one is active. `charge`: it shows a document.
    void montredocument(bool active, bool charge);

    /// Titles of the last documents, nine at most; empty ones and, without any, their separator hide.
    void changederniers(const QStringList& titres);

    /// The entry of a slot in the window list.
    void cocheecran(int indice, bool visible);
    void nommeecran(int indice, const QString& titre);
    /// Marks the slot of the active window, -1 for none.
    void marqueactive(int indice);

signals:
    /// An entry was chosen: name of the array or entry, index in it (0 for a single one).
    void choisie(const QString& nom, int indice);

private:
    QMenu* menu(QMenuBar& barre, const char* nom, int texte);
    QMenu* sousmenu(QMenu& menu, const QString& nom, int texte);
    QAction* ajoute(QMenu& menu, const char* nom, int indice, const QString& libelle, const FormeEntree& forme = {},
                    const QKeySequence& touche = {});
    void menufichier(QMenuBar& barre);
    void menuedition(QMenuBar& barre);
    void menuaffichage(QMenuBar& barre);
    void menuoutils(QMenuBar& barre);
    void menufenetre(QMenuBar& barre);
    void menuaide(QMenuBar& barre);
    void menubarre(QMenu& affichage, Barre barre, int texte);
    void menuscontextuels(QWidget& parent);
    void positions(QMenu& menu, const char* tableau);

    std::function<QString(int)> texte_;
    std::function<QIcon(const QString&)> image_;
    QMap<QString, QAction*> entrees_;
    std::array<QMenu*, 3> menusbarres_{};
    QMenu* fichier_ = nullptr;
    QMenu* fenetre_ = nullptr;
    QAction* lineLastFile_ = nullptr;
    QList<QAction*> desdocuments_; ///< shown while a document window is active
};

} // namespace velm
