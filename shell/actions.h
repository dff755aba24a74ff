#pragma once
// The commands as they can be pressed: one action for each command and rank, which its button, its entry and its key
// share. Here alone they are enabled and checked.
#include "core/ordre.h"
#include "core/texte.h"

#include <QIcon>
#include <QList>
#include <QObject>

#include <array>
#include <functional>

class QAction;

namespace velm {

class FenetreFille;

/// A tool of the user's own, as it is shown.
struct OutilMontre {
    QString libelle;
    QIcon image = {};
};

class Actions final : public QObject {
    Q_OBJECT

public:
    /// `texte` gives a text by its number, `image` a picture by its name. What needs nothing is enabled, all else is
    /// not.
    Actions(const Libelles& texte, const std::function<QIcon(const QString&)>& image, QObject* parent = nullptr);

    /// The action of a command; its objectName is that of its menu entry, or else the key of its button. Asking for a
    /// rank that the command does not have is a fault of the caller.
    QAction& de(Ordre ordre, int rang = 0) const;
    /// All of a command, in the order of their ranks.
    const QList<QAction*>& serie(Ordre ordre) const { return series_.at(static_cast<std::size_t>(ordre)); }
    QList<QAction*> toutes() const;

    /// Gives a command for whoever has no action to press: a drop-down, whose n-th entry is rank n.
    void donne(Ordre ordre, int rang) { emit commande(ordre, rang); }

    /// Enables or disables a command that is not asked of the active window: one that needs `Besoin::Etat`.
    void permet(Ordre ordre, bool permis, int rang = 0);
    void coche(Ordre ordre, bool cochee, int rang = 0);
    bool estcochee(Ordre ordre, int rang = 0) const;
    /// Checks the action of a rank, and no other of its command; none for -1.
    void choisit(Ordre ordre, int rang);
    /// Shows the entry, or hides it; a hidden one is off.
    void montre(Ordre ordre, bool montree, int rang = 0);
    /// Captions an entry with a title that may be of any length: what is cut out of it stands in the tool tip.
    void intitule(Ordre ordre, int rang, const QString& debut, const QString& titre);

    /// The active window has become this one, or what it can do has changed; null for none. What needs a window is
    /// enabled as it says.
    void suit(const FenetreFille* active);

    /// The user's tools, as many as `reglage::nombremaxoutils`; others are left out. The program must be able to run
    /// them: they are enabled.
    void changeoutils(const QList<OutilMontre>& outils);
    int nombredoutils() const { return nombredoutils_; }

signals:
    /// A command was given. The check mark is as it was: what is done sets it.
    void commande(velm::Ordre ordre, int rang);
    /// A document window is active, or none.
    void documentdevant(bool devant);
    void outilschanges();

private:
    QAction* nouvelle(Ordre ordre, int rang, const Libelles& texte, const std::function<QIcon(const QString&)>& image);

    std::array<QList<QAction*>, nombredordres> series_;
    int nombredoutils_ = 0;
};

} // namespace velm
