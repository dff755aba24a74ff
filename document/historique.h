#pragma once
// The two lists of a history: documents to go back to and documents to go forward to, newest first.
#include "platform/controls/buttonmenus.h"

#include <QHash>
#include <QString>
#include <QStringView>

#include <map>

namespace velm {

/// Steps the tail that makes a repeated key unique. False, with nothing changed, when there is no further tail.
bool suffixesuivant(QString& suffixe);

enum class Sens { Arriere, Avant };
/// A plain step, where a jump has the number of its entry from 1.
inline constexpr int unpas = 0;

/// One list of a history, as the drop-down entries of its button: the entry's key is the document's key of eight
/// characters and a tail, its text the title.
class ListeHistorique {
public:
    static constexpr int longueurcle = 8;

    const ButtonMenus& menus() const { return menus_; }
    int nombre() const { return menus_.count(); }
    bool vide() const { return menus_.isEmpty(); }

    /// Of an entry from 1 to nombre(): key of its document, tail, title.
    QString cle(int rang = 1) const { return menus_.at(rang).key.left(longueurcle); }
    QString suffixe(int rang = 1) const { return menus_.at(rang).key.mid(longueurcle); }
    QString titre(int rang = 1) const { return menus_.at(rang).text; }
    /// Whether a document stands in the list.
    bool contient(QStringView cle) const;

    /// Puts an entry on top, its tail stepped from `suffixe` on until the key is unique; nothing is added when no tail
    /// is left. An empty key is no document and adds nothing.
    void ajoute(const QString& cle, QString suffixe, const QString& titre);
    /// Takes the top entry away, if there is one.
    void retire();

private:
    /// Stretches of tails in use, by their place in the order of tails: first and one behind the last.
    using Plages = std::map<int, int>;

    void retient(const QString& entree);
    void libere(const QString& entree);

    ButtonMenus menus_;
    QHash<QString, Plages> suffixes_;
};

struct Historique {
    ListeHistorique precedent;
    ListeHistorique suivant;
};

} // namespace velm
