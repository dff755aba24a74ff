#include "platform/system/dialogues.h"

#include "platform/text/letters.h"

#include <QFileInfo>

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

QStringList patterns(const QString& field) {
    QStringList result;
    const QStringList parts = field.split(u';', Qt::SkipEmptyParts);
    for (const QString& part : parts) {
        const QString pattern = part.trimmed();
        if (pattern == u"*.*"_s) {
            result.append(u"*"_s);
            continue;
        }
        result << pattern << lowerCase(pattern) << upperCase(pattern);
    }
    result.removeAll(QString());
    result.removeDuplicates();
    return result;
}

} // namespace

Bouton boutonAbandon(Boutons boutons) {
    if (boutons.testFlag(Bouton::Annuler))
        return Bouton::Annuler;
    return boutons.testFlag(Bouton::Non) ? Bouton::Non : Bouton::Ok;
}

QList<Filtre> lisfiltres(const QString& filtre) {
    QList<Filtre> result;
    const QStringList fields = filtre.split(u'|');
    for (qsizetype i = 0; i + 1 < fields.size(); i += 2) {
        const QStringList motifs = patterns(fields[i + 1]);
        if (!motifs.isEmpty())
            result.append({fields[i].trimmed(), motifs});
    }
    return result;
}

QString avecextension(const QString& path, const QString& extension) {
    if (path.isEmpty() || extension.isEmpty() || path.endsWith(u'/') || !QFileInfo(path).suffix().isEmpty())
        return path;
    return path.endsWith(u'.') ? path + extension : path + u'.' + extension;
}

} // namespace velm
