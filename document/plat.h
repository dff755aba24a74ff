#pragma once
// A rich text laid flat for a pass that walks over it once. Private to this folder and to its tests.
#include "platform/richtext/richtext.h"

#include <QString>

#include <vector>

namespace velm::passes {

/// The text, its runs of equal character format, its line ends with the formats of their paragraphs. Format numbers are
/// those of the rich text it came from, to which it goes back.
class Plat {
public:
    struct Course {
        qsizetype fin; ///< first position behind the run
        FormatId format;
    };
    struct Ligne {
        qsizetype place; ///< of the line feed
        FormatId format;
    };

    Plat() = default;
    explicit Plat(const RichText& texte);
    /// The same for a text that will be put into another: formats and objects are brought into `hote`.
    Plat(const RichText& texte, RichText& hote);

    /// Puts this into the place of all that `texte` holds; formats and objects stay known there.
    void rend(RichText& texte) const;

    QStringView texte() const { return texte_; }
    qsizetype longueur() const { return texte_.size(); }
    const std::vector<Ligne>& lignes() const { return lignes_; }
    FormatId caractere(qsizetype place) const;
    /// Rank of the first line end at or behind a position; the number of line ends for none.
    std::size_t ligne(qsizetype place) const;
    /// Format of a paragraph by the rank of its line end; behind the last one that of the last paragraph.
    FormatId paragraphe(std::size_t ligne) const { return ligne < lignes_.size() ? lignes_[ligne].format : dernier_; }

    /// Format of the insertion point in an empty last paragraph.
    void fixederniercaractere(FormatId format) { derniercaractere_ = format; }
    void fixedernierparagraphe(FormatId format) { dernier_ = format; }
    void prendfin(const Plat& de);

    void reserve(qsizetype longueur) { texte_.reserve(longueur); }
    /// Adds [debut, fin) of another text; the formats go through `caractere` (of a number) and `paragraphe` (of a rank
    /// there).
    template <typename Caractere, typename Paragraphe>
    void ajoute(const Plat& de, qsizetype debut, qsizetype fin, Caractere caractere, Paragraphe paragraphe) {
        if (debut >= fin)
            return;
        const qsizetype decalage = texte_.size() - debut;
        texte_.append(QStringView(de.texte_).sliced(debut, fin - debut));
        for (auto course = de.course(debut);; ++course) {
            ajoutecourse(std::min(course->fin, fin) + decalage, caractere(course->format));
            if (course->fin >= fin)
                break;
        }
        for (std::size_t i = de.ligne(debut); i < de.lignes_.size() && de.lignes_[i].place < fin; ++i)
            lignes_.push_back({de.lignes_[i].place + decalage, paragraphe(i)});
    }
    void ajoute(const Plat& de, qsizetype debut, qsizetype fin) {
        ajoute(
            de, debut, fin, [](FormatId format) { return format; }, [&de](std::size_t i) { return de.paragraphe(i); });
    }
    /// Adds text of one format; its paragraphs, too.
    void ajoute(QStringView texte, FormatId caractere, FormatId paragraphe);
    /// Takes characters off the end that are no line ends.
    void raccourcit(qsizetype nombre);

private:
    std::vector<Course>::const_iterator course(qsizetype place) const;
    void ajoutecourse(qsizetype fin, FormatId format) {
        if (!courses_.empty() && courses_.back().format == format)
            courses_.back().fin = fin;
        else
            courses_.push_back({fin, format});
    }

    QString texte_;
    std::vector<Course> courses_;
    std::vector<Ligne> lignes_;
    FormatId derniercaractere_ = 0;
    FormatId dernier_ = 0;
};

/// What plain text takes that replaces a character of this format: the same, but no picture.
FormatId sansobjet(RichText& texte, FormatId format);

} // namespace velm::passes
