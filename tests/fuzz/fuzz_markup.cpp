// Any text through the four passes, held against their literal wording. The first byte chooses the display; the rest is
// the document, then, behind each FF byte, the bodies of the documents it can include.
#include "document/balises.h"
#include "tests/document/oracle_passes.h"

#include <QHash>

#include <cstdlib>

namespace {

using namespace velm;

struct Formulaire final : FormulaireRiche {
    explicit Formulaire(bool listes) : aveclistes(listes) {}
    RichTextControl& rtfRichTextBox1() override { return controle; }
    ListesLiens* listes() override { return aveclistes ? &liens : nullptr; }
    bool aveclistes;
    RichTextControl controle;
    ListesLiens liens;
};

struct Source final : SourceDeContenu {
    void prepare() override {}
    std::optional<QByteArray> contenu(const Cle& cle) override {
        const auto corps = textes.constFind(cle.texte());
        return corps == textes.constEnd() ? std::nullopt : std::optional(*corps);
    }
    QHash<QString, QByteArray> textes;
};

TableStyles table() {
    TableStyles styles;
    for (int i = 0; i < 4; ++i) {
        Style& style = styles.styles[static_cast<std::size_t>(i)];
        style.nom = QChar(u'a' + i);
        style.type = i == 1;
        style.nomdelafonte = i == 3 ? QString() : QStringLiteral("F") + style.nom;
        style.tailledelafonte = 9 + i;
        style.puce = i == 2;
        style.retraitdroit = 10 * i;
        style.tabulations = i == 0 ? QStringLiteral("00567") : QString();
    }
    styles.stylesuite = QStringLiteral("s");
    styles.stylecondense = QStringLiteral("a");
    styles.ajoutecondense(QStringLiteral("b"));
    return styles;
}

/// A text in which some characters are bold, so that formats can go wrong, too.
RichText texte(const QByteArray& octets) {
    RichText rich;
    rich.replace(0, 0, QString::fromLatin1(octets));
    for (qsizetype i = 3; i < rich.length(); i += 7) {
        CharChange change{CharChange::Bold, {}};
        change.values.bold = true;
        rich.changeCharacters(i, 2, change);
        ParaChange paragraphe{ParaChange::Before, {}};
        paragraphe.values.spaceBefore = static_cast<std::int32_t>(i);
        rich.changeParagraphs(i, 1, paragraphe);
    }
    return rich;
}

void pose(Formulaire& formulaire, const RichText& rich) {
    formulaire.controle.richTextForEdit() = rich;
    formulaire.controle.notifyChanged();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0)
        return 0;
    const QByteArray tout(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const QList<QByteArray> parts = tout.mid(1).split('\xFF');
    Source source;
    for (qsizetype i = 1; i < parts.size(); ++i) {
        const QByteArray corps = i == 3 ? parts[i] : writeRtf(texte(parts[i]));
        source.textes.insert(QStringLiteral("CO00000%1").arg(i), corps);
    }
    const bool abc = (data[0] & 1) != 0;
    const bool listes = (data[0] & 2) == 0;
    static const TableStyles styles = table();
    SablierMuet sablier;
    const ContextePasses contexte{styles, source, sablier, {2000, 40'000, 3000}};
    const RichText depart = texte(parts[0]);
    Formulaire obtenu(listes);
    pose(obtenu, depart);
    chargecontenu(obtenu, abc, contexte);
    // The literal wording reads the whole text again after each change: long texts are only run through.
    if (depart.length() > 300)
        return 0;
    Formulaire attendu(listes);
    pose(attendu, depart);
    test::oraclechargecontenu(attendu, abc, contexte);
    if (!sameContent(obtenu.controle.richText(), attendu.controle.richText()) || obtenu.liens != attendu.liens)
        std::abort();
    return 0;
}
