#pragma once
// The list of a dossier's items and what is done to them, step by step on plain rows: what ContenuDossier must agree
// with.
#include "modele.h"

namespace velm::test {

struct EntreeModele {
    QString cle;
    QString texte;
    QString image;
};

class ModeleContenu {
public:
    explicit ModeleContenu(TablesModele& tables) : tables_(tables) {}

    void liste(qint64 dossier);
    /// As the control adds: nothing where the key is in use.
    void ajouteentree(const QString& cle, const QString& texte);
    void attente(const ElementEnAttente& element);
    /// Each gives whether its row was found, and `echec` whether a write of it was refused, which undoes all of it.
    bool renomme(std::size_t index, const QString& texte);
    bool supprime(std::size_t index, qint64 dossier);
    bool echange(std::size_t i, std::size_t j, bool& echec);
    bool deplace(std::size_t index, qint64 dossier);
    void range(const ElementEnAttente& element, qint64 dossier);
    void importe(const std::vector<std::pair<QString, QString>>& paires, qint64 dossier);

    QString dessin() const;

    std::vector<EntreeModele> entrees; ///< from 0 here

private:
    /// The first row of the order by document and place that has both: of equal ones the first that was added.
    RangeeElement* cherche(const QString& document, qint64 place);
    static qint64 place(const QString& cle);
    static QString queue(const QString& cle);
    bool prise(const QString& cle) const;
    bool fixe(std::size_t index, const QString& cle);
    bool ecritplace(RangeeElement& rangee, qint64 place);
    bool inverse(std::size_t i, std::size_t j, bool& trouve);

    TablesModele& tables_;
};

} // namespace velm::test
