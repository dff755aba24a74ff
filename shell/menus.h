#pragma once
// The menu bar: one for the frame and its document windows, which it serves as the active one needs.
#include "core/ordre.h"
#include "core/texte.h"

#include <QList>
#include <QObject>

#include <initializer_list>
#include <optional>

class QAction;
class QMenu;
class QMenuBar;

namespace velm {

class Actions;

class MenusEcran final : public QObject {
    Q_OBJECT

public:
    /// Fills a menu bar with commands. `texte` gives a text by its number. The actions are not owned.
    MenusEcran(QMenuBar& barre, Actions& actions, const Libelles& texte);

private:
    QMenu& menu(const QString& nom, Texte texte);
    QMenu& sousmenu(QMenu& menu, const QString& nom, Texte texte);
    /// All ranks of each command; nothing stands for a separator.
    void remplit(QMenu& menu, std::initializer_list<std::optional<Ordre>> ordres);
    void menufichier();
    void menuedition();
    void menuaffichage();
    void menuoutils();
    void menufenetre();
    void menuaide();
    void montredocument(bool devant);

    QMenuBar& barre_;
    Actions& actions_;
    Libelles texte_;
    QList<QAction*> desdocuments_; ///< shown while a document window is active
};

} // namespace velm
