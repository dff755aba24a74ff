#include "outil/sortie.h"

#include "core/obstacles.h"

#include <cstdio>

namespace velm::outil {

Contexte::Contexte(Langue& langue, QString dossierprogramme)
    : langue_(langue), dossierprogramme_(std::move(dossierprogramme)) {}

QString Contexte::texte(int id, const QStringList& parties) {
    return remplace(texte(id), parties);
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

int Contexte::echoue(Code code, int id, const QStringList& parties) {
    erreur(texte(id, parties));
    return code;
}

int Contexte::echouefichier(int id, const QString& chemin, Obstacle obstacle, const QString& mots) {
    return echoue(Echec, id, {chemin, raison(obstacle, mots, [this](int n) { return texte(n); })});
}

std::optional<QByteArray> litfichier(Contexte& contexte, const QString& chemin, FileKind sorte) {
    FileBytes lu = readFile(chemin, sorte);
    if (lu.ok())
        return std::move(lu.bytes);
    contexte.echouefichier(9330, chemin, lu.error.kind, lu.error.words);
    return std::nullopt;
}

} // namespace velm::outil
