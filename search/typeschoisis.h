#pragma once
// The collections that a list shows: which of the eleven buttons of its bar are down, in the order of the collections,
// and the text by which that is kept.
#include "core/cle.h"

#include <QString>
#include <QStringList>
#include <QStringView>

#include <bitset>

namespace velm {

class TypesChoisis {
public:
    /// All of them.
    TypesChoisis() { enfonces_.set(); }
    /// From the text that was kept: a "0" for each that is up. Whatever else stands there, and what it lacks, is down.
    static TypesChoisis lit(QStringView statut);
    /// Those whose codes are written one behind the other ("COEU").
    static TypesChoisis decodes(QStringView codes);

    /// The text to keep: "1" for each that is down, "0" for each that is up.
    QString statut() const;

    bool enfonce(int collection) const { return enfonces_.test(static_cast<std::size_t>(collection)); }
    void change(int collection, bool enfonce) { enfonces_.set(static_cast<std::size_t>(collection), enfonce); }
    bool tous() const { return enfonces_.all(); }
    bool aucun() const { return enfonces_.none(); }

    /// Their codes in the order of the collections; joined without anything between them.
    QStringList liste() const;
    QString codes() const { return liste().join(QString()); }

    friend bool operator==(const TypesChoisis&, const TypesChoisis&) = default;

private:
    std::bitset<nombredecollections> enfonces_;
};

} // namespace velm
