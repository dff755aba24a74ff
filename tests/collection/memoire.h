#pragma once
// A source that lies in memory.
#include "collection/fichiers.h"

#include <QRegularExpression>

#include <map>
#include <utility>

namespace velm::test {

class FichiersEnMemoire final : public FichiersSource {
public:
    explicit FichiersEnMemoire(std::map<QString, QByteArray> fichiers) : fichiers_(std::move(fichiers)) {}

    QString lieu() const override { return QStringLiteral("memoire"); }
    Obstacle obstacle() const override { return Obstacle::None; }
    QStringList noms(const QString& motif) const override {
        const QRegularExpression forme(QRegularExpression::wildcardToRegularExpression(motif),
                                       QRegularExpression::CaseInsensitiveOption);
        QStringList noms;
        for (const auto& [nom, contenu] : fichiers_) {
            if (forme.match(nom).hasMatch())
                noms << nom;
        }
        return noms;
    }
    FileBytes lit(const QString& nom) const override {
        const auto lu = fichiers_.find(nom);
        return lu == fichiers_.end() ? FileBytes{{}, {Obstacle::Missing, {}}} : FileBytes{lu->second, {}};
    }
    bool dehors(const QString& chemin) const override {
        const QString propre = QDir::cleanPath(chemin);
        return QDir::isAbsolutePath(propre) || propre == QStringLiteral("..") ||
               propre.startsWith(QStringLiteral("../"));
    }

private:
    std::map<QString, QByteArray> fichiers_;
};

} // namespace velm::test
