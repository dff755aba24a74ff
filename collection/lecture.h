#pragma once
// The lines of a source: what stands in each, and what is wrong with it.
#include "collection/json.h"
#include "collection/source.h"

#include <functional>

namespace velm {

/// Reports a problem of the line being read.
using Signale = std::function<void(int id, const QString& argument, bool avertissement)>;

/// Calls back for each line that is not blank, with its number from 1.
void parcourtlignes(QByteArrayView contenu, qint64 premiere,
                    const std::function<void(QByteArrayView ligne, qint64 numero)>& ligne);

/// Reads a line of documents. False when it gives no document at all. `fichiers` are where its rich text file lies.
bool litdocument(QByteArrayView ligne, const FichiersSource& fichiers, Fiche& fiche, const Signale& signale);
/// The paragraphs of a line that litdocument() has accepted.
std::vector<Paragraphe> litparagraphes(QByteArrayView ligne);

/// Reads a line of arborescence.jsonl.
bool litnoeud(QByteArrayView ligne, Noeud& noeud, const Signale& signale);

/// Reads collection.json; `ligne` of the problems is that of the place in the file.
void litcollection(
    QByteArrayView contenu, Reglagesdecollection& reglages,
    const std::function<void(qint64 ligne, int id, const QString& argument, bool avertissement)>& signale);

} // namespace velm
