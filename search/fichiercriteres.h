#pragma once
// Criteria files (CV2): a whole search as lines of text in the code page, the state of the three tabs, the type bar and
// the rows of the list. Lines are known by their place. Reading runs no search.
#include "core/cle.h"
#include "search/criteres.h"
#include "search/listeselection.h"

#include <QByteArray>
#include <QByteArrayView>

#include <array>
#include <optional>
#include <vector>

namespace velm {

struct FichierCriteres {
    static constexpr QStringView entete = u"VELMORante 2000 - CV2";

    int ongletrecherche = 0;
    QString Textedico;
    int checkandordico = 0;
    int Combonombredico = 0;
    QString texterapide;
    int combonombre = 0;
    /// The criteria tab. Items of lists are words of a language: they stand in the three texts below, and `motcle`,
    /// `type` and `conjonction` are not in use. `prefixe` is not in the file.
    Criteres criteres;
    QString combomotcle;
    QString conjonction;
    QString combotype;
    std::array<bool, nombredecollections> boutons{};
    /// What each column of the rows shows, as the columns stood.
    std::array<int, ListeSelection::colonnesvisibles> coldata{};
    /// A row: its cells as the columns stood, and the key.
    struct Ligne {
        std::array<QString, ListeSelection::colonnesvisibles> cellules;
        QString cle;
        friend bool operator==(const Ligne&, const Ligne&) = default;
    };
    std::vector<Ligne> lignes;

    friend bool operator==(const FichierCriteres&, const FichierCriteres&) = default;
};

/// What was searched for, in words: those of the tab that is on top, else those of the first that has any.
QString motsdelarecherche(const FichierCriteres& fichier);

/// The bytes of a file. A line end inside a text becomes a blank, as it would end the line.
QByteArray ecritcriteres(const FichierCriteres& fichier);

/// Nothing when the first line is another. CR LF ends a line, and so does either alone. Lines that are missing are
/// empty; there are as many rows as the count says and the file holds whole.
std::optional<FichierCriteres> litfichiercriteres(QByteArrayView octets);

/// The rows of the list and the columns as they stand.
void prendlignes(FichierCriteres& fichier, const ListeSelection& liste);
/// The rows of the file in place of those that are there, each cell by its meaning. Ends where no more are taken.
void rendlignes(const FichierCriteres& fichier, Lignes& lignes);

/// The words to mark: the first is the text of the criteria tab, else that of the quick search, else what it was; the
/// second is always taken.
void rendmots(const FichierCriteres& fichier, Resultat& resultat);

} // namespace velm
