#pragma once
// The line by which a copied passage says where it comes from.
#include "core/texte.h"

#include <QString>
#include <QStringView>

#include <optional>

namespace velm {

/// What a citation is made of, as texts that are shown; empty where there is none.
struct ElementsCitation {
    QString article; ///< of the document, where that holds several
    QString titre;
    QString collection;
    QString source;
    QString date;
    QString cle;
};

/// The line after a template: {article}, {titre}, {collection}, {source}, {date} and {clé} stand for these texts. One
/// that is empty goes with what parts it from the one before, and with its brackets where nothing else is in them. What
/// stands between braces otherwise stays as it is. Line breaks and runs of blanks become one blank.
QString citation(const QString& modele, const ElementsCitation& elements);

/// The articles of a document of several that a passage is from, as they are cited: "art. 3", "art. 3 à 5". Each begins
/// with a paragraph "Article 3", "Art. L. 241-1 - …"; the one that the passage begins in counts, or, where it begins
/// before the first one, those that follow in it. Nothing in a document of one article, and for all of a document. One
/// walk through the text.
QString articlescites(QStringView texte, qsizetype debut, qsizetype longueur, const Libelles& mots);

} // namespace velm
