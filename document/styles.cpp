#include "document/styles.h"

#include "core/tablereglages.h"
#include "core/texte.h"

namespace velm {
namespace {

constexpr auto idnote = Texte::StyleNote;
constexpr auto idcommentaire = Texte::StyleCommentaire;
constexpr int abcindecis = reglage::styleabc[0].defaut;

QString entrenuls(QStringView nom) {
    return QChar(u'\0') + nom.toString() + QChar(u'\0');
}

Style litstyle(const Reglages& reglages, int i, const QString& nom) {
    Style style;
    style.nom = nom;
    style.type = reglages.lit(reglage::styletype[i]);
    style.nomdelafonte = reglages.lit(reglage::stylefonte[i]);
    style.tailledelafonte = reglages.lit(reglage::styletaille[i]);
    style.gras = reglages.lit(reglage::stylegras[i]);
    style.souligne = reglages.lit(reglage::stylesouligne[i]);
    style.italique = reglages.lit(reglage::styleitalique[i]);
    style.barre = reglages.lit(reglage::stylebarre[i]);
    style.exposant = reglages.lit(reglage::styleexposant[i]);
    style.couleur = reglages.lit(reglage::stylecouleur[i]);
    if (style.type)
        return style;
    style.puce = reglages.lit(reglage::stylepuce[i]);
    style.retraitgauche = reglages.lit(reglage::styleretraitgauche[i]);
    style.retraitdroit = reglages.lit(reglage::styleretraitdroit[i]);
    style.alignement = reglages.lit(reglage::stylealignement[i]);
    style.retrait1ligne = reglages.lit(reglage::styleretrait1ligne[i]);
    style.indentpuce = reglages.lit(reglage::styleindentpuce[i]);
    style.tabulations = reglages.lit(reglage::styletabulations[i]);
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
        const QString nom = reglages.lit(reglage::stylenom[i]);
        if (nom.isEmpty())
            continue;
        table.styles[static_cast<std::size_t>(i)] = litstyle(reglages, i, nom);
        int abc = reglages.lit(reglage::styleabc[i]);
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
