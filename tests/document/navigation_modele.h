#pragma once
// The two levels of history written down step by step, with plain lists: what Navigation must agree with.
#include <QHash>
#include <QList>
#include <QString>

#include <array>
#include <memory>
#include <set>
#include <vector>

namespace velm::test {

struct EntreeModele {
    QString key;
    QString text;
};

/// An ordered collection with insertion at 1 and unique keys.
class ListeModele {
public:
    /// False: the key is not unique (the error 35602).
    bool add(const QString& key, const QString& text);
    void remove1();
    int count() const { return static_cast<int>(entrees.size()); }
    const EntreeModele& item(int index) const { return entrees.at(index - 1); }
    QString cle(int index) const { return item(index).key.left(8); }

    QList<EntreeModele> entrees;

private:
    std::set<QString> cles_;
};

struct CourantModele {
    QString reference;
    QString titre;
    ListeModele precedent;
    ListeModele suivant;
    bool boutonprecedent = false;
    bool boutonsuivant = false;
};

struct FenetreModele : CourantModele {
    int slot = 0;
    QString titreaffiche;
    int affichages = 0;
    bool visible = true;
};

class ModeleNavigation {
public:
    /// Titles of the documents that there are.
    explicit ModeleNavigation(const QHash<QString, QString>& titres) : titres_(titres) {}

    void navigue(const QString& commande, bool replier);
    void ferme(FenetreModele* fenetre);
    void bascule(int slot, bool visible);

    CourantModele ecran;
    std::vector<std::unique_ptr<FenetreModele>> toutes; ///< in the order of their making; gone ones are null
    std::array<FenetreModele*, 12> fenetres{};
    std::array<bool, 12> fenetreouverte{};
    std::array<bool, 12> maffichagef{};
    std::array<bool, 12> replierliste{};
    bool maffichagetfu = true;
    QList<QString> derniers = QList<QString>(9);
    QList<QString> libelles = QList<QString>(9);

private:
    void ouvre(const QString& code, const QString& numero, bool replier);
    void memoriser(const QString& code, const QString& numero, const QString& titre);
    void ouvrefenetre(int slot);
    void montre(int slot);
    void pasfenetre(int slot, bool arriere);
    void pasecran(bool arriere);
    void sautfenetre(int slot, bool arriere, int n);
    void sautecran(bool arriere, int n);
    void fenetredecle(int slot);
    void rafraichit(int slot);
    static void ajoute(ListeModele& liste, const QString& cle, QString suffixe, const QString& texte);

    const QHash<QString, QString>& titres_;
    int dernierslot_ = 0;
};

/// The table of the tails' steps.
QString pasdesuffixe(const QString& suffixe);

} // namespace velm::test
