// Screen and paper agree: in the same width the lines of a document break at the same characters.
#include "collection/corps.h"
#include "collection/source.h"
#include "document/balises.h"
#include "platform/typeset/setdocument.h"
#include "tests/platform/widgets/text/viewfixture.h"

#include <QFile>

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int twipsOfPixel = 15; // at 96 dots to the inch

class Accord : public ViewTest, public FormulaireRiche, public SourceDeContenu {
protected:
    struct Compte {
        qsizetype lignes = 0;
        qsizetype autres = 0; ///< that begin or end elsewhere on paper
        QStringList exemples;
    };

    RichTextControl& rtfRichTextBox1() override { return box.control(); }
    ListesLiens* listes() override { return &liens_; }
    void prepare() override {}
    std::optional<QByteArray> contenu(const Cle&) override { return {}; }

    /// As a document window shows it.
    void montre(const QByteArray& rtf) {
        box.control().setRedraw(false);
        box.control().setTextRtf(rtf);
        chargecontenu(*this, false, {styles_, *this, sablier_});
        box.control().setRedraw(true);
    }
    /// The beginnings of a block's lines.
    static std::vector<int> debuts(const QTextLayout& lignes) {
        std::vector<int> tous;
        for (int i = 0; i < lignes.lineCount(); ++i)
            tous.push_back(lignes.lineAt(i).textStart());
        return tous;
    }
    void compare(Compte& compte) {
        PaperLayout& ecran = layout();
        ecran.layOutBetween(0, std::numeric_limits<int>::max());
        const PaperPage& page = ecran.page();
        SetDocument papier(box.control().richText(), page.measure * twipsOfPixel, page.margin * twipsOfPixel);
        ASSERT_EQ(papier.shown().count(), box.document()->blockCount());
        for (QTextBlock bloc = box.document()->begin(); bloc.isValid(); bloc = bloc.next()) {
            const std::vector<int> ici = debuts(*bloc.layout());
            const std::vector<int> la = debuts(*papier.block(bloc.blockNumber()).lines);
            ASSERT_FALSE(ici.empty());
            compte.lignes += static_cast<qsizetype>(ici.size());
            for (std::size_t i = 0; i < ici.size(); ++i) {
                const auto meme = std::ranges::find(la, ici[i]);
                const int fin = i + 1 < ici.size() ? ici[i + 1] : bloc.length();
                const bool egale =
                    meme != la.end() && (std::next(meme) != la.end() ? *std::next(meme) : bloc.length()) == fin;
                if (!egale && ++compte.autres < 20)
                    compte.exemples << bloc.text().mid(ici[i], fin - ici[i]);
            }
        }
    }
    /// Of each so many documents one.
    Compte compare(const QString& source, qsizetype pas = 1) {
        const SourceDossier collection(source);
        FaiseurDeCorps faiseur(collection);
        CorpsFait corps;
        Compte compte;
        for (qsizetype i = 0; i < collection.nombre(); i += pas) {
            faiseur.fait(i, corps);
            montre(corps.contenu);
            compare(compte);
        }
        return compte;
    }
    static QString dossier(const QString& chemin) { return QString::fromUtf8(VELM_SOURCE_DIR) + u'/' + chemin; }

private:
    ListesLiens liens_;
    TableStyles styles_;
    SablierMuet sablier_;
};

} // namespace

TEST_F(Accord, TheSampleBreaksItsLinesOnPaperAsOnTheScreen) {
    const Compte compte = compare(dossier(u"collection/exemple"_s));
    EXPECT_GT(compte.lignes, 2000);
    EXPECT_LE(compte.autres * 1000, compte.lignes) << compte.exemples.join(u'\n').toStdString();
}

TEST_F(Accord, TheRealCollectionBreaksItsLinesOnPaperAsOnTheScreen) {
    const QString source = dossier(u"../shared/corpus"_s);
    if (!QFile::exists(source + u"/documents.jsonl"_s))
        GTEST_SKIP() << "the real collection is not at hand";
    // All of it takes twenty seconds: VELM_LONG=1.
    const qsizetype pas = qEnvironmentVariableIsSet("VELM_LONG") ? 1 : 20;
    const Compte compte = compare(source, pas);
    RecordProperty("lines", static_cast<int>(compte.lignes));
    RecordProperty("others", static_cast<int>(compte.autres));
    EXPECT_GT(compte.lignes, 100'000 / pas);
    EXPECT_LE(compte.autres * 1000, compte.lignes) << compte.exemples.join(u'\n').toStdString();
}

} // namespace velm
