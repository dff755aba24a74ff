#include "search/selectionoutil.h"

#include "core/cle.h"
#include "core/listes.h"
#include "platform/system/files.h"
#include "platform/text/ansi.h"

#include <QFile>

namespace velm {

namespace {

using namespace Qt::Literals::StringLiterals;

QStringList lignesdufichier(const QString& chemin) {
    QString texte = ansi::decodeFile(readPlain(chemin).bytes);
    texte.replace(u"\r\n"_s, u"\n"_s).replace(u'\r', u'\n');
    if (texte.endsWith(u'\n'))
        texte.chop(1);
    return texte.isEmpty() ? QStringList() : texte.split(u'\n');
}

} // namespace

QString fichierselection(const QString& dossiertemporaire) {
    return joinPath(dossiertemporaire, u"select.tmp");
}

std::optional<ResultatSelection> remplitdepuisoutil(const QString& chemin, const Atelier& atelier) {
    if (!fileExists(chemin))
        return std::nullopt;
    ResultatSelection resultat;
    const QStringList lignes = lignesdufichier(chemin);
    atelier.liste.visible = false;
    atelier.liste.vide();
    if (!lignes.isEmpty())
        atelier.liste.mot1 = lignes.first();
    if (lignes.size() > 1)
        atelier.liste.mot2 = lignes.at(1);
    for (qsizetype i = 2; i < lignes.size(); ++i) {
        const Recordset* rangee = atelier.corpus.rangee(decoupecle(lignes.at(i)));
        if (!rangee)
            continue;
        if (ajoutedocument(atelier.liste, *rangee) != 0)
            break;
        ++resultat.hits;
    }
    atelier.curseurattente(textecompte(resultat.hits, atelier.texte));
    resultat.fin = finitliste(atelier);
    QFile::remove(chemin);
    return resultat;
}

} // namespace velm
