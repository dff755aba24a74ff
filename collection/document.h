#pragma once
// A publisher's collection in memory: documents, tree nodes, kinds, and the problems that a source may have.
#include "core/cle.h"
#include "core/texte.h"
#include "platform/base/obstacle.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <array>
#include <optional>
#include <vector>

namespace velm {

/// A problem quotes no more characters of a text than this.
inline constexpr qsizetype longueurextrait = 40;

/// What is wrong with a source. The text belongs to the caller: `texte` with `arguments`.
struct Probleme {
    Texte texte{};
    bool avertissement = false; ///< the base is made all the same
    QString fichier;            ///< relative to the source folder; empty for none
    qint64 ligne = 0;           ///< from 1; 0 for the file as a whole
    QStringList arguments;
    /// Why a file could not be read: its words follow the arguments. None for every other problem.
    Obstacle obstacle = Obstacle::None;
    /// The rich text file that is wrong, where the line only names it.
    QString corps = {};

    friend bool operator==(const Probleme&, const Probleme&) = default;
};
using Problemes = std::vector<Probleme>;

/// A document's key as one number that sorts by the order of the eleven collections, then by number.
using CleDocument = quint32;
inline constexpr int bitsdunumero = 20;
inline constexpr CleDocument pasdecle = ~CleDocument(0);
constexpr CleDocument cledocument(int collection, int numero) {
    return static_cast<CleDocument>(collection) << bitsdunumero | static_cast<CleDocument>(numero);
}
constexpr int collectiondelacle(CleDocument cle) {
    return static_cast<int>(cle >> bitsdunumero);
}
constexpr int numerodelacle(CleDocument cle) {
    return static_cast<int>(cle & ((1U << bitsdunumero) - 1));
}
/// "CO000123".
QString textedelacle(CleDocument cle);
/// The key of exactly eight characters: a known code and six digits; else `pasdecle`.
CleDocument lirecle(QStringView texte);
/// Position of a code in the order of the eleven, or -1.
int indicedecollection(QStringView code);
/// The eleven positions in the alphabetical order of their codes: the order of the keys in the base.
const std::array<int, nombredecollections>& collectionsparcode();

enum class StyleSource : quint8 {
    Titre,
    Soustitre,
    Article,
    Alinea,
    Note,
    Commentaire,
    Suite,
    Liste,
    Citation,
    Formule,
    Tableau
};
inline constexpr int nombredestyles = 11;
/// A paragraph style by its name in a source.
std::optional<StyleSource> styledunom(QStringView nom);

struct Paragraphe {
    StyleSource style = StyleSource::Alinea;
    QString texte; ///< with the source's markup
};

/// Everything of a document but its body.
struct Entete {
    CleDocument cle = pasdecle;
    QString titre;
    std::array<QString, 3> motscles;
    QString source;
    QString date, datecreation, datemodif; ///< yyyy-mm-dd or empty
    QString type;
    QString numarticle, numtitre;
    QString titretexte;        ///< title of the text that `numtitre` is the number of
    qint64 noeud = 0;          ///< 0: under the collection itself
    qint32 couleur = 0xFFFFFF; ///< 0x00BBGGRR
};

/// A body: paragraphs, or rich text as it stands.
struct Corps {
    std::vector<Paragraphe> paragraphes;
    QByteArray rtf;
};

struct Noeud {
    qint64 numero = 0;
    qint64 parent = 0; ///< 0: under the collection
    int collection = 0;
    qint64 ordre = 0;
    QString libelle;
};

struct TypeDeDocument {
    qint64 numero = 0;
    QString libelle;
};

/// Style names of the sections that each paragraph style is put in; empty: no section, the look is the text's own.
using Sections = std::array<QString, nombredestyles>;
Sections sectionspardefaut();

/// Where the documents of a base come from. All calls may come from several threads at once.
class Provenance {
public:
    Provenance() = default;
    virtual ~Provenance() = default;
    Provenance(const Provenance&) = delete;
    Provenance& operator=(const Provenance&) = delete;

    /// Documents are numbered from 0 in the order of the base: by the letters of the code, then by number.
    virtual qsizetype nombre() const = 0;
    virtual CleDocument cle(qsizetype i) const = 0;
    /// Number of the document with a key, or -1.
    virtual qsizetype cherche(CleDocument cle) const = 0;
    virtual Entete entete(qsizetype i) const = 0;
    virtual Corps corps(qsizetype i) const = 0;
    /// File and line to name in a problem with the document's body.
    virtual Probleme lieu(qsizetype i) const = 0;

    /// Of the whole collection; empty for none.
    virtual QString titre() const { return {}; }
    virtual const std::vector<Noeud>& noeuds() const = 0;
    virtual const std::vector<TypeDeDocument>& types() const = 0;
    virtual const Sections& sections() const = 0;
};

} // namespace velm
