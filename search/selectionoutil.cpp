#include "search/selectionoutil.h"

#include "core/cle.h"
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

bool remplitdepuisoutil(const QString& chemin, Corpus& corpus, Resultat& resultat) {
    if (!fileExists(chemin))
        return false;
    const QStringList lignes = lignesdufichier(chemin);
    resultat.commence();
    resultat.lignes.vide();
    if (!lignes.isEmpty())
        resultat.mot1 = lignes.first();
    if (lignes.size() > 1)
        resultat.mot2 = lignes.at(1);
    for (qsizetype i = 2; i < lignes.size(); ++i) {
        const Recordset* rangee = corpus.rangee(decoupecle(lignes.at(i)));
        if (!rangee)
            continue;
        if (!ajoutedocument(resultat.lignes, *rangee))
            break;
        ++resultat.hits;
    }
    resultat.compte = resultat.hits;
    QFile::remove(chemin);
    return true;
}

} // namespace velm
