#include "outil/sortie.h"

#include "core/nombres.h"
#include "core/obstacles.h"

#include <cstdio>

namespace velm::outil {

Contexte::Contexte(Langue& langue, QString dossierprogramme)
    : langue_(langue), dossierprogramme_(std::move(dossierprogramme)) {}

QString Contexte::texte(Texte lequel, const QStringList& parties) {
    return remplace(texte(lequel), parties);
}

QString Contexte::nombre(qint64 compte) {
    return nombreecrit(compte, [this](Texte lequel) { return texte(lequel); });
}

void Contexte::ecrit(QByteArrayView octets) const {
    std::fwrite(octets.data(), 1, static_cast<std::size_t>(octets.size()), stdout);
}

void Contexte::ligne(const QString& texte) const {
    ecrit(texte.toUtf8() + '\n');
}

void Contexte::erreur(const QString& texte) const {
    const QByteArray octets = "velmoutil: " + texte.toUtf8() + '\n';
    std::fwrite(octets.constData(), 1, static_cast<std::size_t>(octets.size()), stderr);
}

int Contexte::echoue(Code code, Texte lequel, const QStringList& parties) {
    erreur(texte(lequel, parties));
    return code;
}

int Contexte::echouefichier(Texte lequel, const QString& chemin, Obstacle obstacle, const QString& mots) {
    return echoue(Echec, lequel, {chemin, raison(obstacle, mots, [this](Texte pourquoi) { return texte(pourquoi); })});
}

std::optional<QByteArray> litfichier(Contexte& contexte, const QString& chemin, FileKind sorte) {
    FileBytes lu = readFile(chemin, sorte);
    if (lu.ok())
        return std::move(lu.bytes);
    contexte.echouefichier(Texte::FichierIllisible, chemin, lu.error.kind, lu.error.words);
    return std::nullopt;
}

} // namespace velm::outil
