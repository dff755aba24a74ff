#include "collection/collection.h"

#include "collection/fabrique.h"
#include "collection/source.h"
#include "collection/temporaire.h"
#include "core/langue.h"
#include "core/obstacles.h"
#include "core/texte.h"

#include <QElapsedTimer>

#include <algorithm>
#include <array>

namespace velm {
namespace {

using namespace Qt::Literals::StringLiterals;

constexpr auto cadre = Texte::ProblemeDansFichier;
constexpr auto cadreducorps = Texte::ProblemeDansCorps;
constexpr auto marqueavertissement = Texte::Avertissement;
constexpr double msparseconde = 1000;

/// Problems by file and line; those of one line as they were found.
void classe(Problemes& problemes) {
    std::stable_sort(problemes.begin(), problemes.end(), [](const Probleme& a, const Probleme& b) {
        return std::tie(a.fichier, a.ligne) < std::tie(b.fichier, b.ligne);
    });
}

void prendechec(const BaseTemporaire& temporaire, ResultatCompilation& resultat) {
    resultat.obstacle = temporaire.obstacle();
    resultat.raison = temporaire.raison();
    resultat.etat = temporaire.etat();
}

} // namespace

Texte libelledetape(Etape etape) {
    constexpr std::array libelles{Texte::LectureDeLaSource, Texte::MiseEnFormeDesDocuments, Texte::ClassementDesMots,
                                  Texte::EcritureDeLaBase};
    return libelles.at(static_cast<std::size_t>(etape));
}

qsizetype ResultatCompilation::erreurs() const {
    return std::count_if(problemes.begin(), problemes.end(), [](const Probleme& p) { return !p.avertissement; });
}

qsizetype ResultatCompilation::avertissements() const {
    return static_cast<qsizetype>(problemes.size()) - erreurs();
}

ResultatCompilation fabrique(const Provenance& provenance, const QString& base, Problemes problemes,
                             const Progres& progres, bool textes) {
    ResultatCompilation resultat;
    resultat.problemes = std::move(problemes);
    BaseTemporaire temporaire(base);
    const bool sain = resultat.erreurs() == 0;
    if (temporaire.base() == nullptr) {
        prendechec(temporaire, resultat);
        return resultat;
    }
    BilanDeFabrique bilan = fabriquebase(provenance, *temporaire.base(), progres, textes);
    std::move(bilan.problemes.begin(), bilan.problemes.end(), std::back_inserter(resultat.problemes));
    classe(resultat.problemes);
    resultat.comptes = bilan.comptes;
    if (!sain || resultat.erreurs() > 0) {
        resultat.etat = ResultatCompilation::Etat::SourceIncorrecte;
        return resultat;
    }
    if (bilan.ecrit && temporaire.acheve()) {
        resultat.etat = ResultatCompilation::Etat::Faite;
        return resultat;
    }
    if (bilan.ecrit)
        temporaire.echoue(temporaire.obstacle(), temporaire.raison());
    else
        temporaire.echoue(bilan.obstacle, bilan.raison);
    prendechec(temporaire, resultat);
    return resultat;
}

ResultatCompilation compile(const QString& source, const QString& base, const Progres& progres, bool textes) {
    QElapsedTimer temps;
    temps.start();
    if (progres)
        progres(Etape::Lecture, 0, 0);
    const SourceDossier dossier(source);
    ResultatCompilation resultat = fabrique(dossier, base, dossier.problemes(), progres, textes);
    resultat.secondes = static_cast<double>(temps.elapsed()) / msparseconde;
    return resultat;
}

QString phrase(const Probleme& probleme, const Libelles& texte) {
    QStringList arguments = probleme.arguments;
    if (probleme.obstacle != Obstacle::None)
        arguments << raison(probleme.obstacle, QString(), texte);
    QString rempli = remplace(texte(probleme.texte), arguments);
    if (probleme.avertissement)
        rempli = remplace(texte(Texte::LigneEtiquetee), {texte(marqueavertissement), rempli});
    if (probleme.fichier.isEmpty() || probleme.ligne == 0)
        return rempli;
    const QStringList place{probleme.fichier, QString::number(probleme.ligne), rempli};
    return probleme.corps.isEmpty() ? remplace(texte(cadre), place)
                                    : remplace(texte(cadreducorps), QStringList{probleme.corps} + place);
}

} // namespace velm
