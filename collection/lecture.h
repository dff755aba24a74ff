#pragma once
// The lines of a source: what stands in each, and what is wrong with it.
#include "collection/json.h"
#include "collection/source.h"

#include <functional>

namespace velm {

/// Reports a problem of the line being read: who made it puts file and line in.
class Signale {
public:
    template <typename Dit>
    explicit Signale(Dit dit) : dit_(std::move(dit)) {}

    void operator()(Texte texte, const QString& argument, bool avertissement,
                    Obstacle obstacle = Obstacle::None) const {
        dit_({texte, avertissement, {}, 0, argument.isEmpty() ? QStringList() : QStringList{argument}, obstacle});
    }

private:
    std::function<void(Probleme)> dit_;
};

/// Calls back for each line that is not blank, with its number from 1.
void parcourtlignes(QByteArrayView contenu, qint64 premiere,
                    const std::function<void(QByteArrayView ligne, qint64 numero)>& ligne);

/// Reads a line of documents. False when it gives no document at all. `fichiers` are where its rich text file lies.
bool litdocument(QByteArrayView ligne, const FichiersSource& fichiers, Fiche& fiche, const Signale& signale);
/// The paragraphs of a line that litdocument() has accepted.
std::vector<Paragraphe> litparagraphes(QByteArrayView ligne);

/// Reads a line of arborescence.jsonl.
bool litnoeud(QByteArrayView ligne, Noeud& noeud, const Signale& signale);

/// Reads collection.json; the problems have the line of their place in the file.
void litcollection(QByteArrayView contenu, Reglagesdecollection& reglages,
                   const std::function<void(Probleme)>& signale);

} // namespace velm
