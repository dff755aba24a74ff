#include "document/styles.h"

#include <limits>

namespace velm {
namespace {

using namespace Qt::Literals::StringLiterals;

constexpr int idnote = 1404;
constexpr int idcommentaire = 1408;
constexpr int abcindecis = 2;

QString entrenuls(QStringView nom) {
    return QChar(u'\0') + nom.toString() + QChar(u'\0');
}

/// Reads the keys of one record, all of which begin with "STYLEnn".
class Lecture {
public:
    Lecture(const Reglages& reglages, int indice)
        : reglages_(reglages), prefixe_(u"STYLE%1"_s.arg(indice, 2, 10, QChar(u'0'))) {}

    QString texte(const QString& suffixe) const { return reglages_.texte(section, cle(suffixe), QString(), true); }
    bool booleen(const QString& suffixe) const { return reglages_.booleen(section, cle(suffixe), false, true); }
    int long32(const QString& suffixe, int defaut = 0) const {
        return static_cast<int>(reglages_.entier(section, cle(suffixe), defaut, true));
    }
    int court16(const QString& suffixe, int defaut = 0) const {
        constexpr Bornes bornes{std::numeric_limits<qint16>::min(), std::numeric_limits<qint16>::max()};
        return static_cast<int>(reglages_.entier(section, cle(suffixe), defaut, true, bornes));
    }

private:
    static inline const QString section = u"EDITEUR"_s;
    QString cle(const QString& suffixe) const { return prefixe_ + suffixe; }
    const Reglages& reglages_;
    QString prefixe_;
};

Style litstyle(const Lecture& lecture, const QString& nom) {
    Style style;
    style.nom = nom;
    style.type = lecture.booleen(u"-TYPE"_s);
    style.nomdelafonte = lecture.texte(u"-NOMDELAFONTE"_s);
    style.tailledelafonte = lecture.court16(u"-TAILLEDELAFONTE"_s);
    style.gras = lecture.booleen(u"-GRAS"_s);
    style.souligne = lecture.booleen(u"-SOULIGNE"_s);
    style.italique = lecture.booleen(u"-ITALIQUE"_s);
    style.barre = lecture.booleen(u"-BARRE"_s);
    style.exposant = lecture.court16(u"-EXPOSANT"_s);
    style.couleur = lecture.long32(u"-COULEUR"_s);
    if (style.type)
        return style;
    style.puce = lecture.booleen(u"-PUCE"_s);
    style.retraitgauche = lecture.long32(u"-RETRAITGAUCHE"_s);
    style.retraitdroit = lecture.long32(u"-RETRAITDROIT"_s);
    style.alignement = lecture.court16(u"-ALIGNEMENT"_s);
    style.retrait1ligne = lecture.court16(u"-RETRAIT1LIGNE"_s);
    style.indentpuce = lecture.long32(u"-INDENTPUCE"_s);
    style.tabulations = lecture.texte(u"-TABULATIONS"_s);
    return style;
}

/// Both texts are looked up for each style that has not chosen: a missing one is said each time.
bool condenseparnom(Langue& langue, const QString& nom) {
    const QString note = langue.lireressource(idnote);
    const QString commentaire = langue.lireressource(idcommentaire);
    return nom == note || nom == commentaire;
}

} // namespace

int TableStyles::indice(QStringView nom) const {
    if (nom.isEmpty())
        return -1;
    for (int i = 0; i < nombre; ++i) {
        if (styles[static_cast<std::size_t>(i)].nom == nom)
            return i;
    }
    return -1;
}

void TableStyles::ajoutecondense(const QString& nom) {
    listecondensee += entrenuls(nom);
}

TableStyles litstyles(const Reglages& reglages, Langue& langue, const TextesConstants& textes) {
    TableStyles table;
    table.stylesuite = textes.stylesuite;
    table.stylecondense = textes.stylecondense;
    table.stylemarque = textes.stylemarque;
    for (int i = 0; i < TableStyles::nombre; ++i) {
        const Lecture lecture(reglages, i);
        const QString nom = lecture.texte(u"-NOM"_s);
        if (nom.isEmpty())
            continue;
        table.styles[static_cast<std::size_t>(i)] = litstyle(lecture, nom);
        int abc = lecture.court16(u"-ABC"_s, abcindecis);
        if (abc == abcindecis)
            abc = condenseparnom(langue, nom) ? 1 : 0;
        if (abc == 1)
            table.ajoutecondense(nom);
    }
    return table;
}

bool stylemasque(const TableStyles& styles, QStringView nom, QStringView precedent) {
    if (styles.listecondensee.contains(entrenuls(nom)))
        return true;
    return nom == styles.stylesuite && styles.listecondensee.contains(entrenuls(precedent));
}

} // namespace velm
