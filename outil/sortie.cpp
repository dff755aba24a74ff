#include "outil/sortie.h"

#include <QFile>

#include <cstdio>

namespace velm::outil {

Contexte::Contexte(Langue& langue, QStringList arguments, QString dossierprogramme)
    : langue_(langue), arguments_(std::move(arguments)), dossierprogramme_(std::move(dossierprogramme)) {}

bool Contexte::option(const QString& nom) {
    return arguments_.removeAll(nom) > 0;
}

QString Contexte::valeur(const QString& nom) {
    const qsizetype place = arguments_.indexOf(nom);
    if (place < 0 || place + 1 >= arguments_.size())
        return {};
    arguments_.removeAt(place);
    return arguments_.takeAt(place);
}

QString Contexte::optioninconnue() const {
    for (const QString& argument : arguments_) {
        if (argument.startsWith(QStringLiteral("--")))
            return argument;
    }
    return {};
}

QString Contexte::texte(int id, const QStringList& parties) {
    return remplace(texte(id), parties);
}

void Contexte::ecrit(const QByteArray& octets) const {
    std::fwrite(octets.constData(), 1, static_cast<std::size_t>(octets.size()), stdout);
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

std::optional<QByteArray> litfichier(Contexte& contexte, const QString& chemin) {
    QFile fichier(chemin);
    if (!fichier.open(QIODevice::ReadOnly)) {
        contexte.echoue(Echec, 9330, {chemin});
        return std::nullopt;
    }
    return fichier.readAll();
}

} // namespace velm::outil
