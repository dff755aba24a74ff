#pragma once
// The criteria of a search through the documents: the tab as it is filled in, what is read from it when a search
// begins, and the test that each document must pass.
#include "core/typesdocument.h"
#include "platform/richtext/find.h"

#include <QString>

#include <array>
#include <optional>

namespace velm {

/// The controls of the tab. Texts stand as they were typed.
struct Criteres {
    enum Place { Titre, Contenu, Source };
    enum Conjonction { Et, Ou, Sauf, OuSauf };

    QString motcle; ///< the keyword chosen; empty: any
    int type = 0;   ///< the kind of document chosen, as its row; 0: any
    QString textejour;
    QString textemois;
    QString texteannee;
    std::array<QString, 2> texterech;
    std::array<bool, 2> motentier{};
    std::array<bool, 2> respectminmaj{};
    std::array<bool, 3> emplacement{true, true, true};
    int prefixe = 0; ///< 1: the documents without the first text
    int conjonction = Et;

    friend bool operator==(const Criteres&, const Criteres&) = default;
};

/// The reset button: everything but `prefixe`.
void annulercriteres(Criteres& criteres);

/// A second text alone becomes the first; its options stay where they are.
void avancetexte(Criteres& criteres);

/// Whether the box of the day, or of the month, may be left: empty, or from 1 to `plusgrand`.
bool validejour(QStringView texte);
bool validemois(QStringView texte);
/// The year that the box shows when it is left: below 10 it counts from 2000, below 1900 from 1900.
QString valideannee(const QString& texte);
/// A year takes no exponent.
bool touchedelannee(QStringView frappe);

/// What a search compares with.
struct CriteresLus {
    QString motcle;
    std::optional<qint64> numerotype;
    QString libelletype;
    int jour = 0; ///< 0: not asked; the same for month and year
    int mois = 0;
    int annee = 0;
    std::array<QString, 2> textes;    ///< with their codes replaced
    std::array<QString, 2> textesmaj; ///< upper case
    std::array<FindOptions, 2> options;
    std::array<bool, 3> emplacement{};
    bool nie = false; ///< the first text must be absent
    int conjonction = Criteres::Et;
    bool sanstable = false; ///< every body is decoded, whatever folded text the base holds

    bool sanstexte() const { return !emplacement[0] && !emplacement[1] && !emplacement[2]; }
    /// Whether a document that has passed everything else is still to be searched for a text.
    bool chercheuntexte() const { return !sanstexte() && !textes[0].isEmpty(); }
    bool cherchedanscontenu() const { return chercheuntexte() && emplacement[Criteres::Contenu]; }
    bool datedemandee() const { return jour != 0 || mois != 0 || annee != 0; }
};

CriteresLus litcriteres(const Criteres& criteres, const TypesDocument& types);

/// The fields of a document that a test looks at.
struct FicheCriteres {
    qint64 rangee = 0; ///< row id; 0 for no document
    QString reference;
    QString numart;
    QString titre;
    std::array<QString, 3> motcle;
    QString source;
    QString type;
    QString date; ///< yyyy-MM-dd; empty for none
};

/// Finds the two texts in the body of a document.
class CorpsCherche {
public:
    virtual ~CorpsCherche() = default;
    /// Nothing when the body cannot be read.
    virtual std::optional<bool> contient(qint64 rangee, int texte) = 0;
};

/// The tests of keyword, kind and date.
bool testefiche(const CriteresLus& criteres, const FicheCriteres& fiche);
/// The tests of the texts, for a document that has passed those.
std::optional<bool> testetextes(const CriteresLus& criteres, const FicheCriteres& fiche, CorpsCherche& corps);
/// All tests in their order: the cheap ones first, so that few bodies are read.
std::optional<bool> testecriteres(const CriteresLus& criteres, const FicheCriteres& fiche, CorpsCherche& corps);

} // namespace velm
