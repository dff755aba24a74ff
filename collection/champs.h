#pragma once
// Fields of a source's objects, read by kind.
#include "collection/lecture.h"

#include <optional>

namespace velm {

/// The greatest number of a tree node.
inline constexpr qint64 plusgrandnoeud = 0x7FFFFFFF;

/// Reads fields; each reads its value whatever it is, and reports it when it is of another kind.
class Champs {
public:
    Champs(LecteurJson& json, const Signale& signale) : json_(json), signale_(signale) {}

    /// A text of one line, or null; controls in it become blanks.
    void texte(const QString& nom, QString& valeur);
    /// A whole number, or null.
    void entier(const QString& nom, std::optional<qint64>& valeur);
    /// A date in the form yyyy-mm-dd, or null.
    void date(const QString& nom, QString& valeur);
    /// Reports a value of the wrong kind.
    void nature(const QString& nom);
    /// Passes over a field that the format does not know.
    void inconnu(const QString& nom);
    /// Passes over a value that may only be null.
    void nulou(const QString& nom);

private:
    LecteurJson& json_;
    const Signale& signale_;
};

/// Reports the reader's own error, if there is one, and tells so.
bool signalefaute(const LecteurJson& json, const Signale& signale);

/// "#RRGGBB" as a stored colour.
std::optional<qint32> lirecouleur(const QString& texte);

} // namespace velm
