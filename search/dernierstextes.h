#pragma once
// The last texts of a search box, which its drop-down offers again: newest first, each once, not too many.
#include "core/reglages.h"

#include <QStringList>

namespace velm {

class DerniersTextes {
public:
    static constexpr qsizetype plusdetextes = 12;
    /// A longer one is a pasted page, and no search to come back to.
    static constexpr qsizetype pluslong = 250;

    /// The texts are kept in these settings, from 1.
    explicit DerniersTextes(const Serie<ReglageTexte>& serie) : serie_(serie) {}

    const QStringList& textes() const { return textes_; }
    /// A search with this text begins. One without a text leaves no trace.
    void ajoute(const QString& texte);
    void charge(const Reglages& reglages);
    void sauve(Reglages& reglages) const;

private:
    bool retenu(const QString& texte) const;

    Serie<ReglageTexte> serie_;
    QStringList textes_;
};

} // namespace velm
