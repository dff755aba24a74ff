#pragma once
// The procedures by which each list once read and wrote by itself the texts that keep its columns.
#include "platform/text/number.h"

#include <QString>

#include <algorithm>
#include <array>
#include <vector>

namespace velm::test {

using namespace Qt::Literals::StringLiterals;

inline int largeurdumasque(QStringView largeurs, int colonne) {
    const qsizetype debut = qsizetype{6} * colonne;
    if (debut < 0 || debut >= largeurs.size())
        return 0;
    return static_cast<int>(std::clamp(val(largeurs.mid(debut, 6)), 0.0, 999'999.0));
}

inline int champdumasque(QStringView ordre, int colonne) {
    if (colonne < 0 || colonne >= ordre.size() || ordre[colonne] < u'0' || ordre[colonne] > u'9')
        return -1;
    return ordre[colonne].unicode() - u'0';
}

inline int titreduchamp(QChar chiffre) {
    return 252 + chiffre.unicode();
}

/// The list of what was found.
struct OracleTrouves {
    static constexpr QStringView masquelargeurs = u"003000002000002000002000000500001000";
    static constexpr QStringView masqueordre = u"012354";

    struct Colonne {
        int champ;
        int largeur;
    };
    std::vector<Colonne> colonnes;

    OracleTrouves() {
        for (int i = 0; i < 6; ++i)
            colonnes.push_back({champdumasque(masqueordre, i), largeurdumasque(masquelargeurs, i)});
    }
    void deplace(int de, int vers) {
        if (de < 0 || de >= 6 || vers < 0 || vers >= 6)
            return;
        const auto a = colonnes.begin() + de;
        const auto b = colonnes.begin() + vers;
        if (de < vers)
            std::rotate(a, a + 1, b + 1);
        else
            std::rotate(b, a, a + 1);
    }
    void changelargeur(int place, int twips) {
        if (place >= 0 && place < 6)
            colonnes[static_cast<std::size_t>(place)].largeur = std::max(twips, 0);
    }
    void prend(QStringView ordre, QStringView largeurs) {
        if (ordre.size() == 6 && std::is_permutation(ordre.begin(), ordre.end(), masqueordre.begin())) {
            for (int place = 0; place < 6; ++place) {
                int ici = place;
                while (colonnes[static_cast<std::size_t>(ici)].champ != champdumasque(ordre, place))
                    ++ici;
                deplace(ici, place);
            }
        }
        for (int place = 0; place < 6; ++place) {
            const int largeur = largeurdumasque(largeurs, place);
            if (largeur >= 60 && largeur <= 32767)
                changelargeur(place, largeur);
        }
    }
    QString ordre() const {
        QString masque;
        for (const Colonne& colonne : colonnes)
            masque += QString::number(colonne.champ);
        return masque;
    }
    QString largeurs() const {
        QString masque;
        for (const Colonne& colonne : colonnes)
            masque += QString::number(std::min(colonne.largeur, 32767)).rightJustified(6, u'0');
        return masque;
    }
};

/// The list of a collection.
inline QString ordredescolonnes(QStringView enregistre) {
    const QString premiers = enregistre.left(4).toString();
    QString tries = premiers;
    std::sort(tries.begin(), tries.end());
    return (tries == u"0123" ? premiers : u"0123"_s) + u'4';
}

inline std::array<int, 4> largeursdescolonnes(QStringView enregistre) {
    std::array<int, 4> largeurs{};
    for (int colonne = 0; colonne < 4; ++colonne) {
        const double lue = val(enregistre.mid(6 * colonne, 6));
        largeurs.at(static_cast<std::size_t>(colonne)) = lue >= 1 ? static_cast<int>(std::min(lue, 30'000.0)) : 2000;
    }
    return largeurs;
}

inline QString largeursaenregistrer(const std::array<int, 4>& largeurs) {
    QString texte;
    for (const int largeur : largeurs)
        texte += QString::number(std::clamp(largeur, 0, 999'999)).rightJustified(6, u'0');
    return texte;
}

} // namespace velm::test
