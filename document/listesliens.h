#pragma once
// Where the links of a displayed document lie: ten lists that are never shown, row n of one belonging with row n of its
// companions. A statement that fails while a link is recorded leaves its list one row short.
#include <QString>
#include <QStringList>

#include <cstdint>
#include <vector>

namespace velm {

/// A list of positions, which readers see as their decimal texts.
class ListePositions {
public:
    void ajoute(qsizetype position) { positions_.push_back(static_cast<std::int32_t>(position)); }
    void vide() { positions_.clear(); }
    qsizetype nombre() const { return static_cast<qsizetype>(positions_.size()); }
    /// Row from 0; beyond the end the empty text and 0.
    QString texte(qsizetype rang) const { return dedans(rang) ? QString::number(valeur(rang)) : QString(); }
    qsizetype valeur(qsizetype rang) const { return dedans(rang) ? positions_[static_cast<std::size_t>(rang)] : 0; }

    friend bool operator==(const ListePositions&, const ListePositions&) = default;

private:
    bool dedans(qsizetype rang) const { return rang >= 0 && rang < nombre(); }
    std::vector<std::int32_t> positions_;
};

/// Starts are the position of the first shown character, ends that just behind the last one, from 0.
struct ListesLiens {
    QStringList Listehyperlien; ///< keys
    ListePositions Listestarthyperlien;
    ListePositions Listeendhyperlien;
    QStringList ListeValeurHyperLien; ///< shown texts
    QStringList ListeUrl;
    ListePositions ListeStartUrl;
    ListePositions ListeEndUrl;
    QStringList ListeEmail;
    ListePositions ListeStartEmail;
    ListePositions ListeEndEmail;

    void vide() { *this = {}; }
    friend bool operator==(const ListesLiens&, const ListesLiens&) = default;
};

} // namespace velm
