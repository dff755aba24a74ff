#include "outil/reponse.h"

#include "core/listes.h"
#include "core/texte.h"

#include <QJsonArray>
#include <QJsonDocument>

namespace velm::outil {

using namespace Qt::Literals::StringLiterals;

QJsonObject resultatjson(const Resultat& resultat) {
    const Lignes& lignes = resultat.lignes;
    QJsonArray rangs;
    for (int rang = 1; rang <= lignes.nombre(); ++rang)
        rangs.append(QJsonObject{
            {u"cle"_s, lignes.cle(rang)},
            {u"titre"_s, lignes.champ(rang, Lignes::Titre)},
            {u"motscles"_s, QJsonArray{lignes.champ(rang, Lignes::Motcle1), lignes.champ(rang, Lignes::Motcle2),
                                       lignes.champ(rang, Lignes::Motcle3)}}});
    return {{u"nombre"_s, lignes.nombre()},
            {u"mot1"_s, resultat.mot1},
            {u"mot2"_s, resultat.mot2},
            {u"documents"_s, rangs}};
}

void ecritresultat(Contexte& contexte, const Resultat& resultat, const QStringList& lignes, bool enjson) {
    if (enjson) {
        QJsonObject objet = resultatjson(resultat);
        objet.insert(u"lignes"_s, QJsonArray::fromStringList(lignes));
        contexte.ecrit(QJsonDocument(objet).toJson(QJsonDocument::Indented));
        return;
    }
    for (const QString& ligne : lignes)
        contexte.ligne(ligne);
    const Lignes& documents = resultat.lignes;
    for (int rang = 1; rang <= documents.nombre(); ++rang)
        contexte.ligne(documents.cle(rang) + u'\t' + documents.champ(rang, Lignes::Titre));
    contexte.ligne(textecompte(documents.nombre(), [&](Texte id) { return contexte.texte(id); }).trimmed());
}

} // namespace velm::outil
