#pragma once
// Posting lists of the word index: bytes, four to a posting (a letter for the collection and a number of 24 bits, high
// byte first), without count or separator. They may be damaged: any bytes, and any length, give what the rules give.
#include <QByteArray>
#include <QByteArrayView>
#include <QString>

#include <array>
#include <cstdint>
#include <functional>
#include <vector>

namespace velm {

inline constexpr int octetsparentree = 4;

/// The postings whose letter is among the letters, in order. Empty when either is.
QByteArray filtretypes(QByteArrayView liste, QByteArrayView lettres);

/// The postings of the shorter list (on equal length of the first) that stand in the other, in order and as often as
/// they stand there. In linear time.
QByteArray intersectionlistes(const QByteArray& a, const QByteArray& b);

/// The longer list (on equal length the second) and behind it the postings of the other that it does not hold yet.
/// A posting whose four bytes stand in the result across two postings, one or two bytes behind the first one's start,
/// counts as held: so the union may lack a document (kept: a search for one of several words, or for all words that
/// begin alike, may show less than hold them). In linear time.
QByteArray unionlistes(const QByteArray& a, const QByteArray& b);

/// The union of many lists, one after the other: result = union of the result and the list. In time linear in all
/// lists together, where joining them pair by pair would look at the growing result again and again.
class UnionDeListes {
public:
    void ajoute(const QByteArray& liste);
    const QByteArray& liste() const { return resultat_; }

private:
    void retient(qsizetype depuis);
    bool contient(std::uint32_t entree) const;
    void insere(std::uint32_t entree);
    void agrandit();
    void recommence();
    bool connait(const QByteArray& liste);

    QByteArray resultat_;
    std::array<bool, 256> premiers_{}; // bytes that begin a posting: only stretches that begin so are ever looked for
    std::vector<std::uint32_t> cases_; // open addressing; 0 is empty, the key 0 itself is zero_
    std::size_t remplies_ = 0;
    bool zero_ = false;
    bool valide_ = false;
};

/// Sorts the lists from `bas` to `haut` (both included) by length, the shortest first, and a companion along with them.
/// Lists of equal length come in any order, which varies from run to run: `hasard` gives numbers in [0, 1).
void trierlistes(std::vector<QByteArray>& listes, std::vector<QString>& compagnons, int bas, int haut,
                 const std::function<double()>& hasard);

} // namespace velm
