// Where the files of a source lie makes no difference to what is read of them.
#include "collection/source.h"
#include "tests/collection/dossier.h"
#include "tests/collection/memoire.h"
#include "tests/support/odd_files.h"

#ifdef Q_OS_UNIX
#include <sys/stat.h>
#endif

namespace velm::test {
namespace {

class FichiersDeSource : public DossierSource {
protected:
    static QStringList dit(const SourceDossier& source) {
        QStringList lignes;
        for (const Probleme& p : source.problemes())
            lignes << texte(p);
        for (qsizetype i = 0; i < source.nombre(); ++i) {
            const Corps corps = source.corps(i);
            lignes << textedelacle(source.cle(i)) + u' ' + source.entete(i).titre + u' ' +
                          QString::fromLatin1(corps.rtf) + u' ' + source.lieu(i).fichier;
            for (const Paragraphe& paragraphe : corps.paragraphes)
                lignes << paragraphe.texte;
        }
        return lignes;
    }
};

TEST_F(FichiersDeSource, AreReadFromMemoryAsFromTheirFolder) {
    const auto avecrtf = [](int numero, const QByteArray& chemin) {
        return "{\"collection\":\"JP\",\"numero\":" + QByteArray::number(numero) + ",\"titre\":\"T\",\"rtf\":\"" +
               chemin + "\"}\n";
    };
    const std::map<QString, QByteArray> fichiers{
        {u"documents-b.jsonl"_s, document("CO", 2, "deux") + "[\n"},
        {u"documents-a.jsonl"_s, "\xEF\xBB\xBF" + document("CO", 1, "un") + document("CO", 1, "encore") +
                                     avecrtf(1, "rtf/a.rtf") + avecrtf(2, "rtf/../rtf/absent.rtf") +
                                     avecrtf(3, "rtf/../../x")},
        {u"rtf/a.rtf"_s, "{\\rtf1\\ansi texte}"},
        {u"autre.jsonl"_s, "rien"},
        {u"arborescence.jsonl"_s, "x\n"},
        {u"collection.json"_s, "{\"titre\":1}"}};
    for (const auto& [nom, contenu] : fichiers)
        ecrit(nom, contenu);
    const QStringList surdisque = dit(SourceDossier(source()));
    EXPECT_EQ(dit(SourceDossier(std::make_unique<FichiersEnMemoire>(fichiers))), surdisque);
    EXPECT_TRUE(surdisque.contains(u"CO000001 Titre 1  documents-a.jsonl"_s)) << surdisque.join(u'\n').toStdString();
    EXPECT_TRUE(surdisque.contains(u"JP000001 T {\\rtf1\\ansi texte} documents-a.jsonl"_s));
}

TEST_F(FichiersDeSource, ABigFileIsReadInPartsAndItsLinesAreCountedThrough) {
    QByteArray lignes;
    QStringList attendus;
    for (int numero = 1; numero <= 3000; ++numero) {
        lignes += document("CO", numero, QByteArray(100, 'x')) + "\n";
        if (numero % 500 == 0) {
            lignes += "faux\n";
            attendus << u"E9341 documents.jsonl:%1 1, faux"_s.arg(2 * numero + numero / 500);
        }
    }
    documents(lignes);
    ASSERT_GT(lignes.size(), 500'000);
    const SourceDossier source(this->source());
    EXPECT_EQ(source.nombre(), 3000);
    QStringList dits;
    for (const Probleme& p : source.problemes())
        dits << texte(p);
    EXPECT_EQ(dits, attendus);
}

#ifdef Q_OS_UNIX
TEST_F(FichiersDeSource, APipeAmongThemDoesNotKeepTheCompilerWaiting) {
    const NobodyWaits watch;
    const QByteArray tuyau = QFile::encodeName(source() + u"/rtf/tuyau.rtf"_s);
    ASSERT_EQ(mkfifo(tuyau.constData(), 0600), 0);
    documents(R"({"collection":"CO","numero":1,"titre":"T","rtf":"rtf/tuyau.rtf"})");
    EXPECT_EQ(textes(compile()), QStringList{u"E9330 documents.jsonl:1 rtf/tuyau.rtf"_s});
}
#endif

} // namespace
} // namespace velm::test
