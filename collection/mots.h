#pragma once
// The word dictionary in the making: which documents hold which words.
#include "collection/document.h"

#include <QHash>

#include <memory>

namespace velm {

/// True for the characters that part words, in a text as in a line typed by the user: CR, LF, blank, tab, the
/// punctuation of Windows-1252 and its characters 160 and 255.
bool estseparateur(char16_t unite);

/// True for a word that the search refuses: fewer than two characters, a number in front (other than 0), a digit at the
/// end. Words of more than 255 characters are left out too.
bool motrefuse(QStringView mot);

/// Words of a run of documents that come in ascending order; one for each thread.
class Repertoire {
public:
    Repertoire();
    ~Repertoire();
    Repertoire(const Repertoire&) = delete;
    Repertoire& operator=(const Repertoire&) = delete;

    /// Notes every word of a shown text, once. `document` counts up.
    void note(quint32 document, QStringView texte);

    struct Privee;
    const Privee& d() const { return *d_; }

private:
    std::unique_ptr<Privee> d_;
};

/// The words of several repertoires in the order of the base, with their posting lists made one by one.
class Dictionnaire {
public:
    explicit Dictionnaire(const std::vector<std::unique_ptr<Repertoire>>& repertoires);
    ~Dictionnaire();
    Dictionnaire(const Dictionnaire&) = delete;
    Dictionnaire& operator=(const Dictionnaire&) = delete;

    qsizetype nombre() const;
    QString mot(qsizetype i) const;
    /// Four bytes for each document: the letter of its collection from A, its number in three bytes, the high one
    /// first; in the order of the eleven collections, then by number.
    QByteArray liste(qsizetype i, const Provenance& provenance) const;

private:
    struct Privee;
    std::unique_ptr<Privee> d_;
};

} // namespace velm
