#include "modeletables.h"

namespace velm::test {

// ---- the tables

RangeeDossier* TablesModele::dossier(qint64 numero) {
    for (RangeeDossier& r : arborescences) {
        if (r.numero == numero)
            return &r;
    }
    return nullptr;
}

qint64 TablesModele::comptearticle(qint64 numero) const {
    return std::count_if(donnees.begin(), donnees.end(), [&](const auto& r) { return r.dossier == numero; });
}

bool TablesModele::prise(qint64 dossier, qint64 place) const {
    return std::any_of(donnees.begin(), donnees.end(),
                       [&](const auto& r) { return r.dossier == dossier && r.place == place; });
}

void TablesModele::effaceelements(qint64 dossier) {
    std::erase_if(donnees, [&](const auto& r) { return r.dossier == dossier; });
}

void TablesModele::effacedossier(qint64 numero) {
    std::erase_if(arborescences, [&](const auto& r) { return r.numero == numero; });
}

// ---- the texts

QString decimal(qint64 nombre) {
    return (nombre < 0 ? QString() : u" "_s) + QString::number(nombre);
}

qint64 valeur(const QString& texte) {
    QString chiffres;
    for (const QChar c : texte) {
        if (c == u' ')
            continue;
        if (!c.isDigit() && !(chiffres.isEmpty() && c == u'-'))
            break;
        chiffres += c;
    }
    return chiffres.toLongLong();
}

qint64 comptemodele(const QString& texte) {
    if (!texte.endsWith(u"]"_s) || !texte.contains(u"["_s))
        return 0;
    return valeur(texte.mid(texte.lastIndexOf(u"["_s) + 1));
}

QString nommodele(const QString& texte) {
    if (!texte.endsWith(u"]"_s) || !texte.contains(u"["_s))
        return texte;
    // Counted from 1: what stands up to two places before the bracket.
    const qsizetype crochet = texte.lastIndexOf(u"["_s) + 1;
    return crochet < 2 ? QString() : texte.left(crochet - 2);
}

QString textemodele(const QString& nom, qint64 compte) {
    return compte == 0 ? nom : nom + u" ["_s + QString::number(compte) + u"]"_s;
}

QString changemodele(const QString& texte, qint64 delta) {
    const bool suffixe = texte.endsWith(u"]"_s) && texte.contains(u"["_s);
    const qint64 nouveau = comptemodele(texte) + delta;
    if (suffixe && nouveau != 0)
        return texte.left(texte.lastIndexOf(u"["_s) + 1) + QString::number(nouveau) + u"]"_s;
    if (suffixe)
        return nommodele(texte);
    return textemodele(texte, nouveau);
}

} // namespace velm::test
