#pragma once
// Document keys: a two-letter collection code and six digits, as in "CO000123".
#include <QHashFunctions>
#include <QString>
#include <QStringView>

#include <optional>

namespace velm {

/// The order of the eleven collections wherever they are listed, looped over or counted.
inline constexpr QStringView codestypes = u"COEUJPCLJRPRLTADGLVPDI";
/// The order of the twelve window slots; IN is the index list.
inline constexpr QStringView codesfenetres = u"COEUJPCLJRPRLTADGLVPDIIN";
/// Only for the test of a key inside a document's markup. DI and VP stand the other way round (kept: each code is found
/// all the same, and a pair that straddles two of them names no document).
inline constexpr QStringView codesmarques = u"COEUJPCLJRPRLTADGLDIVP";

inline constexpr int nombredecollections = 11;
inline constexpr int nombredefenetres = 12;

/// Slot of a code: half of its position, an exact half rounded to the even slot (a pair that straddles two codes is
/// found too). An unknown code gives 0, which is CO's slot.
int indicedetype(QStringView code);

/// The code of a slot from 0 to 11; empty outside.
QString typedindice(int indice);

/// The last six digits of a number, zero-padded: 7 gives "000007", 1234567 gives "234567".
QString sixchiffres(qint64 nombre);

/// What names a document, whether there is such a document or not: keys come from texts, settings and bases that may be
/// damaged, and are looked up as they are.
struct Cle {
    QString code;
    QString numero;

    /// The key as it is written and stored.
    QString texte() const { return code + numero; }
    /// No document.
    bool vide() const { return code.isEmpty() && numero.isEmpty(); }
    /// Slot of the document's window, see indicedetype().
    int indice() const { return indicedetype(code); }

    friend bool operator==(const Cle&, const Cle&) = default;
    friend std::size_t qHash(const Cle& cle, std::size_t seed = 0) { return qHashMulti(seed, cle.code, cle.numero); }
};

/// The key that is written so. It is cut by position, the first two characters and the rest, and neither is looked at:
/// what is no key names no document, and its texte() gives it back as it was.
Cle decoupecle(QStringView cle);

/// A key as somebody writes it: two letters in either case, and a whole number ("co88" is CO000088). Nothing for any
/// other text.
std::optional<Cle> clesaisie(QStringView texte);

/// True for exactly eight characters whose first two are found in `codesmarques`: what counts as a key in the markup.
bool estcle(QStringView cle);

} // namespace velm

/// For the containers of the standard library.
template <>
struct std::hash<velm::Cle> {
    std::size_t operator()(const velm::Cle& cle) const noexcept { return qHash(cle); }
};
