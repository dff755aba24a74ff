// The passes against their literal wording, on random texts made of tokens and of pieces of them.
#include "document_support.h"
#include "oracle_passes.h"
#include "tests/support/rounds.h"

#include <QElapsedTimer>

#include <gtest/gtest.h>
#include <random>

namespace velm::test {
namespace {

using namespace Qt::Literals::StringLiterals;

class Hasard {
public:
    explicit Hasard(unsigned graine) : moteur_(graine) {}
    int nombre(int borne) { return static_cast<int>(moteur_() % static_cast<unsigned>(borne)); }

private:
    std::mt19937 moteur_;
};

/// Pieces that tokens are made of; each family favours one pass, the last one mixes all.
const std::vector<std::vector<QString>>& familles() {
    static const std::vector<std::vector<QString>> toutes = {
        {u"{I=CO000001}"_s, u"{I=EU000002}"_s, u"{I=DI000003}"_s, u"{I=CO000004}"_s, u"{I=XX000001}"_s,
         u"{I=CO00001}"_s, u"{I="_s, u"CO000001"_s, u"{"_s, u"{I"_s, u"I="_s, u"="_s, u"}"_s, u"x"_s, u"\n"_s},
        {u"{FF}"_s, u"{F"_s, u"F}"_s, u"{"_s, u"}"_s, u"F"_s, u"x"_s, u"\n"_s, u" "_s},
        {u"{S=a}"_s,   u"{S=c}"_s,  u"{S=tab}"_s, u"{S=puce}"_s, u"{S=Suite}"_s, u"{S=cachee}"_s,
         u"{S=nue}"_s, u"{S=zz}"_s, u"{S="_s,     u"{-S}"_s,     u"{"_s,         u"{S"_s,
         u"{-"_s,      u"{-S"_s,    u"S}"_s,      u"-S}"_s,      u"S="_s,        u"="_s,
         u"}"_s,       u"a"_s,      u"x"_s,       u"\t"_s,       u"\n"_s,        u"text "_s},
        {u"{L=x|CO000001}"_s, u"{L="_s, u"{U="_s, u"{E="_s, u"{L"_s, u"{U"_s, u"{U}"_s, u"{E"_s, u"{"_s, u"}"_s, u"|"_s,
         u"|k}"_s, u"L"_s, u"x"_s, u"yz"_s, u"\n"_s, u"\t"_s},
        {u"{I=CO000001}"_s,
         u"{I=EU000002}"_s,
         u"{I="_s,
         u"{FF}"_s,
         u"{S=a}"_s,
         u"{S=Suite}"_s,
         u"{S=cachee}"_s,
         u"{S=tab}"_s,
         u"{S="_s,
         u"{-S}"_s,
         u"{L="_s,
         u"{U="_s,
         u"{E="_s,
         u"|k}"_s,
         u"|"_s,
         u"{"_s,
         u"}"_s,
         u"="_s,
         u"S"_s,
         u"I"_s,
         u"\n"_s,
         u"\t"_s,
         u"x"_s}};
    return toutes;
}

/// Pieces in any order; now and then one is repeated, so that tokens nest.
QString textehasard(Hasard& hasard, const std::vector<QString>& morceaux, int combien) {
    QString texte;
    for (int i = hasard.nombre(combien + 1); i > 0; --i) {
        const QString& morceau = morceaux[static_cast<std::size_t>(hasard.nombre(static_cast<int>(morceaux.size())))];
        texte += hasard.nombre(8) == 0 ? morceau.repeated(1 + hasard.nombre(6)) : morceau;
    }
    return texte;
}

/// Some formats over a text, so that what takes whose format can be seen.
RichText formate(Hasard& hasard, QString texte) {
    RichText rich;
    texte.replace(u"\n"_s, u"\r\n"_s);
    rich.replace(0, 0, texte);
    for (int i = hasard.nombre(5); i > 0; --i) {
        const qsizetype debut = hasard.nombre(static_cast<int>(rich.length()) + 1);
        const qsizetype longueur = hasard.nombre(12);
        CharChange c;
        c.mask = CharChange::Size | CharChange::Hidden;
        c.values.size = 20 + hasard.nombre(5);
        c.values.hidden = hasard.nombre(2) != 0;
        rich.changeCharacters(debut, longueur, c);
        ParaChange p;
        p.mask = ParaChange::Before | ParaChange::Tabs | ParaChange::Start | ParaChange::Align;
        p.values.spaceBefore = hasard.nombre(4);
        p.values.startIndent = hasard.nombre(4);
        p.values.alignment = static_cast<Alignment>(hasard.nombre(3));
        p.values.tabs = {100 + hasard.nombre(3)};
        rich.changeParagraphs(debut, longueur, p);
    }
    return rich;
}

TableStyles styleshasard() {
    TableStyles table = stylesdessai();
    // Properties that the control refuses stay as they were: such styles cover others only in part.
    Style nu = styled(u"nue"_s, 12);
    nu.nomdelafonte.clear();
    nu.tailledelafonte = 0;
    nu.alignement = 7;
    nu.tabulations = u"abc"_s;
    table.styles[20] = nu;
    table.ajoutecondense(u"c"_s);
    return table;
}

/// Bodies that hold tokens themselves, themselves and each other, some without a last paragraph end, one no rich text.
void sources(SourceEssai& source, Hasard& hasard) {
    source.corps.clear();
    for (const QString& cle : {u"CO000001"_s, u"EU000002"_s, u"DI000003"_s}) {
        const std::vector<QString>& morceaux = familles()[static_cast<std::size_t>(hasard.nombre(5))];
        source.corps[cle] = writeRtf(formate(hasard, textehasard(hasard, morceaux, 4)));
    }
    source.corps[u"CO000004"_s] = hasard.nombre(2) == 0 ? QByteArray("no rich text") : QByteArray();
}

struct Cas {
    RichText texte;
    bool abc = false;
    bool listes = true;
};

void charge(FormulaireEssai& formulaire, const RichText& texte) {
    formulaire.controle.richTextForEdit() = texte;
    formulaire.controle.notifyChanged();
    formulaire.controle.setBulletIndent(77);
}

std::string visible(const FormulaireEssai& formulaire) {
    return formulaire.controle.text().replace(u"\r\n"_s, u"\\n"_s).toStdString();
}

void compare(const Cas& cas, SourceEssai& source, const TableStyles& styles) {
    FormulaireEssai attendu(cas.listes);
    FormulaireEssai obtenu(cas.listes);
    charge(attendu, cas.texte);
    charge(obtenu, cas.texte);
    SablierMuet premier;
    SablierMuet second;
    const BornesPasses bornes{2 * cas.texte.length() + 300, 6000, 4 * cas.texte.length() + 50};
    oraclechargecontenu(attendu, cas.abc, {styles, source, premier, bornes});
    chargecontenu(obtenu, cas.abc, {styles, source, second, bornes});
    ASSERT_EQ(visible(attendu), visible(obtenu));
    ASSERT_TRUE(sameContent(attendu.controle.richText(), obtenu.controle.richText()));
    ASSERT_EQ(attendu.liens, obtenu.liens);
    ASSERT_EQ(attendu.controle.bulletIndent(), obtenu.controle.bulletIndent());
    ASSERT_EQ(attendu.controle.selStart(), obtenu.controle.selStart());
    ASSERT_EQ(premier.pointeur(), second.pointeur());
}

TEST(PassesOracle, RandomTextsComeOutAsTheLiteralWordingHasThem) {
    const bool longue = qEnvironmentVariableIntValue("VELM_LONG") != 0;
    const int cas = longue ? 1'200'000 : test::rounds(60'000);
    const TableStyles styles = styleshasard();
    SourceEssai source;
    for (int i = 0; i < cas; ++i) {
        const auto graine = static_cast<unsigned>(i) + (longue ? 1'000'000U : 0U);
        Hasard hasard(graine);
        if (i % 16 == 0)
            sources(source, hasard);
        const std::vector<QString>& morceaux = familles()[static_cast<std::size_t>(i) % familles().size()];
        const QString texte = textehasard(hasard, morceaux, i % 500 == 7 ? 400 : 4 + hasard.nombre(20));
        const Cas un{formate(hasard, texte), hasard.nombre(3) == 0, hasard.nombre(8) != 0};
        compare(un, source, styles);
        if (testing::Test::HasFatalFailure()) {
            for (auto corps = source.corps.cbegin(); corps != source.corps.cend(); ++corps)
                ADD_FAILURE() << corps.key().toStdString() << ": "
                              << rtfToText(*corps, RtfLoad::Selection).toStdString();
            FAIL() << "case " << i << ": " << texte.toStdString() << (un.abc ? " (condensed)" : "");
        }
    }
}

} // namespace
} // namespace velm::test
