#pragma once
// Texts for the view's tests and benchmarks, made without a reader.
#include "platform/richtext/richtext.h"

#include <QStringList>

namespace velm::sample {

using namespace Qt::Literals::StringLiterals;

namespace detail {

inline constexpr std::int32_t deepBlue = 0x794E1F;
inline constexpr std::int32_t grey = 0x6E6055;

inline CharFormat face(const QString& family, double points, bool bold = false, std::int32_t colour = autoColour) {
    CharFormat format;
    format.family = family;
    format.size = qRound(points * 2);
    format.bold = bold;
    format.colour = colour;
    return format;
}

inline ParaFormat spaced(std::int32_t after) {
    ParaFormat format;
    format.spaceAfter = after;
    return format;
}

class Maker {
public:
    void add(const QString& text, const CharFormat& character, const ParaFormat& paragraph) {
        rich.append(text, rich.intern(character), rich.intern(paragraph));
    }
    void paragraph(const QString& text, const CharFormat& character, const ParaFormat& format) {
        add(text + u"\r\n"_s, character, format);
    }

    RichText rich;
};

inline void addArticle(Maker& make, int number) {
    const CharFormat body = face(u"Liberation Serif"_s, 11);
    CharFormat italic = body;
    italic.italic = true;
    CharFormat raised = face(u"Liberation Serif"_s, 7.5);
    raised.offset = 80;
    make.paragraph(u"Article L. %1-1"_s.arg(number), face(u"Liberation Sans"_s, 11, true, deepBlue), spaced(120));
    ParaFormat running = spaced(120);
    make.add(u"I."_s, body, running);
    make.add(u" \u2013 Le professionnel répond, à l\u2019égard du consommateur, de tout défaut de conformité existant "
             "lors de la délivrance du bien et qui apparaît dans un délai de deux ans à compter de celle-ci, dans les "
             "conditions prévues à l\u2019article L. %1-3 et sans préjudice de la "_s.arg(number),
             body, running);
    make.add(u"garantie légale"_s, italic, running);
    make.add(u" des vices cachés"_s, body, running);
    make.add(u"1"_s, raised, running);
    make.paragraph(u". Ce délai n\u2019interrompt pas la prescription\u00A0; il peut être prorogé par accord."_s, body,
                   running);
    ParaFormat bullet = spaced(60);
    bullet.bullet = true;
    bullet.startIndent = 240;
    bullet.offset = 284;
    make.paragraph(
        u"la réparation du bien ou son remplacement, au choix du consommateur, sans frais et sans "
        "inconvénient majeur pour lui, compte tenu de la nature du bien et de l\u2019usage recherché\u00A0;"_s,
        body, bullet);
    make.paragraph(u"la réduction du prix\u00A0;"_s, body, bullet);
    make.paragraph(u"la résolution du contrat."_s, body, bullet);
    ParaFormat hanging = spaced(60);
    hanging.startIndent = 0;
    hanging.offset = 360;
    make.paragraph(u"1°\tLorsque la réparation est impossible, le bien est remplacé dans les trente jours qui suivent "
                   "la demande, à moins que le coût en soit manifestement disproportionné\u00A0;"_s,
                   body, hanging);
    make.paragraph(u"2°\tLorsque le remplacement l\u2019est aussi, le prix est réduit."_s, body, hanging);
}

inline void addTable(Maker& make) {
    ParaFormat rows = spaced(20);
    rows.tabs = {2600, 4600, 6400};
    const CharFormat head = face(u"Liberation Sans"_s, 9, true);
    const CharFormat cell = face(u"Liberation Serif"_s, 10.5);
    make.paragraph(u"Nature du bien\tDélai\tPreuve\tMontant"_s, head, rows);
    make.paragraph(u"Bien neuf\tdeux ans\tprésomption\t1\u202F250,00 €"_s, cell, rows);
    make.paragraph(u"Bien d\u2019occasion\tun an\tprésomption de douze mois\t310,50 €"_s, cell, rows);
    make.paragraph(u"Contenu numérique\tun an\tpreuve\t9,90 €"_s, cell, rows);
}

} // namespace detail

/// A paragraph for each line, one format.
inline RichText plain(const QStringList& lines) {
    detail::Maker make;
    make.add(lines.join(u"\r\n"_s), detail::face(u"Liberation Serif"_s, 11), {});
    return make.rich;
}

/// Headings, running text, bullets, a table on tab stops, hanging numbers, a note, a centred and a right line.
inline RichText lawArticle() {
    detail::Maker make;
    make.paragraph(u"Code de la consommation"_s, detail::face(u"Liberation Sans"_s, 15, true), detail::spaced(60));
    make.paragraph(u"Chapitre VII\u00A0: Obligation de conformité dans les contrats de vente de biens"_s,
                   detail::face(u"Liberation Sans"_s, 12, false, 0x544642), detail::spaced(240));
    detail::addArticle(make, 217);
    ParaFormat before = detail::spaced(120);
    before.spaceBefore = 120;
    make.paragraph(u"Les délais sont ceux du tableau\u00A0:"_s, detail::face(u"Liberation Serif"_s, 11), before);
    detail::addTable(make);
    ParaFormat note = detail::spaced(60);
    note.spaceBefore = 240;
    note.startIndent = 284;
    note.rightIndent = 284;
    note.alignment = Alignment::Justify;
    make.paragraph(
        u"Note\u00A0: conformément à l\u2019article 9 de l\u2019ordonnance, ces dispositions s\u2019appliquent "
        "aux contrats conclus à compter du 1er janvier. Les contrats conclus avant cette date restent soumis "
        "aux dispositions antérieures, y compris pour leurs effets légaux."_s,
        detail::face(u"Liberation Serif"_s, 9, false, detail::grey), note);
    make.paragraph(u"\f"_s, detail::face(u"Liberation Serif"_s, 11), {});
    ParaFormat centred;
    centred.alignment = Alignment::Centre;
    make.paragraph(u"* * *"_s, detail::face(u"Liberation Serif"_s, 11), centred);
    CharFormat marked = detail::face(u"Liberation Serif"_s, 11, true, 0x24248A);
    marked.background = 0xC0FFFF;
    make.add(u"Fait à Paris, le "_s, detail::face(u"Liberation Serif"_s, 11), {});
    make.add(u"consommateur"_s, marked, {});
    make.paragraph(u" entendu."_s, detail::face(u"Liberation Serif"_s, 11), {});
    ParaFormat right;
    right.alignment = Alignment::Right;
    make.add(u"Le garde des sceaux"_s, detail::face(u"Liberation Serif"_s, 11), right);
    return make.rich;
}

/// At least so many characters of law articles.
inline RichText longText(qsizetype characters) {
    detail::Maker make;
    for (int number = 1; make.rich.length() < characters; ++number)
        detail::addArticle(make, number);
    return make.rich;
}

} // namespace velm::sample
