#include "document/appliquestyle.h"

#include "platform/text/number.h"

#include <algorithm>
#include <limits>

namespace velm {
namespace {

using namespace Qt::Literals::StringLiterals;

constexpr qsizetype largeurchamp = 5;

constexpr std::size_t maximumtaquets = 32;

// A control refuses values that mean nothing; the property then stays as it is and the next one is set.

bool taillevalable(int points) {
    return points >= 1 && points <= 2160;
}

bool alignementconnu(int alignement) {
    return alignement >= 0 && alignement <= 3;
}

void appliquecaracteres(RichTextControl& controle, const Style& style) {
    if (!style.nomdelafonte.isEmpty())
        controle.setSelFontName(style.nomdelafonte);
    if (taillevalable(style.tailledelafonte))
        controle.setSelFontSize(style.tailledelafonte);
    controle.setSelBold(style.gras);
    controle.setSelUnderline(style.souligne);
    controle.setSelItalic(style.italique);
    controle.setSelStrikeThru(style.barre);
    controle.setSelCharOffset(style.exposant);
    controle.setSelColor(style.couleur);
}

void appliqueparagraphes(RichTextControl& controle, const Style& style) {
    controle.setSelBullet(style.puce);
    // The right indent stands on both sides: a document's pages are set that way, retraitgauche reaches no control.
    controle.setSelIndent(style.retraitdroit);
    controle.setSelRightIndent(style.retraitdroit);
    controle.setSelHangingIndent(style.retrait1ligne);
    controle.setBulletIndent(style.indentpuce);
    if (controle.selBullet().value_or(false)) {
        // Off and on again: only then does the control take the new distance.
        controle.setSelBullet(false);
        controle.setSelBullet(true);
    }
    if (alignementconnu(style.alignement))
        controle.setSelAlignment(static_cast<Alignment>(style.alignement));
}

void appliquetaquets(RichTextControl& controle, const Style& style) {
    if (style.tabulations.isEmpty() || controle.richText().indexOf(u'\t') < 0)
        return;
    const std::vector<std::int32_t> stops = taquets(style.tabulations);
    controle.setSelTabCount(static_cast<int>(stops.size()));
    for (std::size_t k = 0; k < stops.size(); ++k)
        controle.setSelTab(static_cast<int>(k), stops[k]);
}

/// Stops as a paragraph holds them.
std::vector<std::int32_t> ordonne(std::vector<std::int32_t> stops) {
    std::erase_if(stops, [](std::int32_t stop) { return stop <= 0; });
    std::sort(stops.begin(), stops.end());
    stops.erase(std::unique(stops.begin(), stops.end()), stops.end());
    return stops;
}

/// Inserts at a position and leaves the inserted text selected.
void insere(RichTextControl& controle, qsizetype position, const QString& texte) {
    controle.setSelStart(position);
    controle.setSelLength(0);
    controle.setSelText(texte);
    controle.setSelStart(position);
    controle.setSelLength(texte.size());
}

void marque(RichTextControl& controle, const QString& nom, const TableStyles& styles, Sablier& sablier) {
    const qsizetype debut = controle.selStart();
    const qsizetype longueur = controle.selLength();
    const QString ouvrante = u"{S="_s + nom + u"}"_s;
    const QString fermante = u"{-S}"_s;
    insere(controle, debut, ouvrante);
    insere(controle, debut + ouvrante.size() + longueur, fermante);
    appliquestyle(controle, styles.stylemarque, false, styles, sablier);
    controle.setSelStart(debut);
    controle.setSelLength(ouvrante.size());
    appliquestyle(controle, styles.stylemarque, false, styles, sablier);
    controle.setSelStart(debut + ouvrante.size());
    controle.setSelLength(longueur);
}

} // namespace

std::vector<std::int32_t> taquets(QStringView tabulations) {
    std::vector<std::int32_t> stops;
    for (qsizetype i = 0; i + largeurchamp <= tabulations.size() && stops.size() < maximumtaquets; i += largeurchamp) {
        const qint64 valeur = roundHalfEven(val(tabulations.sliced(i, largeurchamp)));
        stops.push_back(static_cast<std::int32_t>(std::clamp<qint64>(valeur, std::numeric_limits<std::int32_t>::min(),
                                                                     std::numeric_limits<std::int32_t>::max())));
    }
    return stops;
}

void appliquestyle(RichTextControl& controle, const QString& nom, bool marquer, const TableStyles& styles,
                   Sablier& sablier) {
    const Attente attente(sablier);
    const int indice = styles.indice(nom);
    if (indice >= 0) {
        const Style& style = styles.styles[static_cast<std::size_t>(indice)];
        appliquecaracteres(controle, style);
        if (!style.type) {
            appliqueparagraphes(controle, style);
            appliquetaquets(controle, style);
        }
    }
    if (marquer)
        marque(controle, nom, styles, sablier);
}

ChangementStyle changementdestyle(const Style& style) {
    ChangementStyle resultat;
    CharChange& c = resultat.caracteres;
    c.mask = CharChange::Bold | CharChange::Underline | CharChange::Italic | CharChange::Strike | CharChange::Offset |
             CharChange::Colour;
    if (!style.nomdelafonte.isEmpty())
        c.mask |= CharChange::Family;
    if (taillevalable(style.tailledelafonte))
        c.mask |= CharChange::Size;
    c.values.family = style.nomdelafonte;
    c.values.size = 2 * style.tailledelafonte;
    c.values.bold = style.gras;
    c.values.underline = style.souligne;
    c.values.italic = style.italique;
    c.values.strike = style.barre;
    c.values.offset = style.exposant;
    c.values.colour = style.couleur;
    if (style.type)
        return resultat;

    ParaChange& p = resultat.paragraphes;
    p.mask = ParaChange::Bullet | ParaChange::Start | ParaChange::Right | ParaChange::OffsetLines;
    p.values.bullet = style.puce;
    p.values.startIndent = style.retraitdroit;
    p.values.rightIndent = style.retraitdroit;
    p.values.offset = style.puce ? style.indentpuce : style.retrait1ligne;
    if (alignementconnu(style.alignement)) {
        p.mask |= ParaChange::Align;
        p.values.alignment = static_cast<Alignment>(style.alignement);
    }
    if (!style.tabulations.isEmpty())
        resultat.taquets = ordonne(taquets(style.tabulations));
    resultat.indentpuce = style.indentpuce;
    return resultat;
}

} // namespace velm
