#include "outil/banc.h"

#include "core/listes.h"

#include <QJsonArray>
#include <QJsonDocument>

namespace velm::outil {

QJsonObject Banc::json() const {
    QJsonArray rangs;
    for (int rang = 1; rang < liste_.rows(); ++rang)
        rangs.append(
            QJsonObject{{QStringLiteral("cle"), liste_.cle(rang)},
                        {QStringLiteral("titre"), liste_.champ(rang, ListeSelection::Titre)},
                        {QStringLiteral("motscles"), QJsonArray{liste_.champ(rang, ListeSelection::Motcle1),
                                                                liste_.champ(rang, ListeSelection::Motcle2),
                                                                liste_.champ(rang, ListeSelection::Motcle3)}}});
    return {{QStringLiteral("nombre"), liste_.lignes()},
            {QStringLiteral("mot1"), liste_.mot1},
            {QStringLiteral("mot2"), liste_.mot2},
            {QStringLiteral("documents"), rangs}};
}

void Banc::ecrit(const QStringList& lignes, bool enjson) const {
    if (enjson) {
        QJsonObject objet = json();
        objet.insert(QStringLiteral("lignes"), QJsonArray::fromStringList(lignes));
        contexte_.ecrit(QJsonDocument(objet).toJson(QJsonDocument::Indented));
        return;
    }
    for (const QString& ligne : lignes)
        contexte_.ligne(ligne);
    for (int rang = 1; rang < liste_.rows(); ++rang)
        contexte_.ligne(liste_.cle(rang) + u'\t' + liste_.champ(rang, ListeSelection::Titre));
    contexte_.ligne(textecompte(liste_.lignes(), atelier_.texte).trimmed());
}

} // namespace velm::outil
