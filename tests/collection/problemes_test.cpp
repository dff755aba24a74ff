// Every problem of a source, with its file and line.
#include "tests/collection/dossier.h"
#include "tests/support/odd_files.h"
#include "tests/support/without_rights.h"

namespace velm::test {
namespace {

class ProblemesDeSource : public DossierSource {
protected:
    QStringList de(const QByteArray& lignes) {
        documents(lignes);
        return textes(compile());
    }
    QStringList arbre(const QByteArray& lignes) {
        ecrit(u"arborescence.jsonl"_s, lignes);
        return de("");
    }
    QStringList collection(const QByteArray& contenu) {
        ecrit(u"collection.json"_s, contenu);
        return de("");
    }
    static QByteArray noeud(const QByteArray& numero, const QByteArray& parent, const QByteArray& code = "CO") {
        return "{\"noeud\":" + numero + ",\"parent\":" + parent + ",\"collection\":\"" + code +
               "\",\"ordre\":1,\"libelle\":\"L\"}\n";
    }
};

TEST_F(ProblemesDeSource, LinesThatAreNoJson) {
    EXPECT_EQ(de("{\"collection\":\"CO\" \"numero\":1}\n\n[1]\nx\n{\"titre\":\"\xFF\"}\n"),
              (QStringList{u"E9341 documents.jsonl:1 20, \"numero\":1}"_s, u"E9363 documents.jsonl:3 "_s,
                           u"E9357 documents.jsonl:3 255"_s, u"E9342 documents.jsonl:3 collection"_s,
                           u"E9341 documents.jsonl:4 1, x"_s, u"E9367 documents.jsonl:5 "_s}));
}

TEST_F(ProblemesDeSource, FieldsThatLackOrAreOfTheWrongKind) {
    EXPECT_EQ(
        de("{\"titre\":\"T\",\"corps\":[]}\n"
           "{\"collection\":\"CO\",\"titre\":\"T\",\"corps\":[]}\n"
           "{\"collection\":\"XX\",\"numero\":1,\"titre\":\"T\",\"corps\":[]}\n"
           "{\"collection\":\"IN\",\"numero\":1,\"titre\":\"T\",\"corps\":[]}\n"
           "{\"collection\":\"CO\",\"numero\":\"1\",\"titre\":\"T\",\"corps\":[]}\n"
           "{\"collection\":\"CO\",\"numero\":1.5,\"titre\":\"T\",\"corps\":[]}\n"
           "{\"collection\":\"CO\",\"numero\":8,\"titre\":8,\"corps\":{}}\n"
           "{\"collection\":\"CO\",\"numero\":9,\"titre\":\"T\",\"motscles\":\"a\",\"corps\":[1,{\"style\":2}]}\n"),
        (QStringList{
            u"E9342 documents.jsonl:1 collection"_s, u"E9342 documents.jsonl:2 numero"_s,
            u"E9343 documents.jsonl:3 XX"_s, u"E9343 documents.jsonl:4 IN"_s, u"E9358 documents.jsonl:5 numero"_s,
            u"E9342 documents.jsonl:5 numero"_s, u"E9358 documents.jsonl:6 numero"_s,
            u"E9342 documents.jsonl:6 numero"_s, u"E9358 documents.jsonl:7 titre"_s, u"E9358 documents.jsonl:7 corps"_s,
            u"E9363 documents.jsonl:7 "_s, u"E9357 documents.jsonl:7 255"_s, u"E9358 documents.jsonl:8 motscles"_s,
            u"E9358 documents.jsonl:8 corps"_s, u"E9358 documents.jsonl:8 style"_s, u"E9350 documents.jsonl:8 "_s}));
}

TEST_F(ProblemesDeSource, NumbersOutOfRangeAndKeysTwice) {
    EXPECT_EQ(de(document("CO", 0, "x") + document("CO", 1000000, "x") + document("CO", 5, "x") +
                 document("EU", 5, "x") + document("CO", 5, "y") + document("CO", 6, "x", ",\"noeud\":-1")),
              (QStringList{u"E9344 documents.jsonl:1 0"_s, u"E9344 documents.jsonl:2 1000000"_s,
                           u"E9345 documents.jsonl:5 CO000005"_s, u"E9344 documents.jsonl:6 -1"_s,
                           u"E9346 documents.jsonl:6 -1"_s}));
}

TEST_F(ProblemesDeSource, TitlesKeywordsDatesAndColours) {
    EXPECT_EQ(
        de("{\"collection\":\"CO\",\"numero\":1,\"titre\":\"  \",\"corps\":[]}\n"
           "{\"collection\":\"CO\",\"numero\":2,\"titre\":\"" +
           QByteArray(256, 'x') + "\",\"corps\":[]}\n" + document("CO", 3, "x", R"(,"motscles":["a","b","c","d"])") +
           document("CO", 4, "x", R"(,"date":"1999-02-30")") +
           document("CO", 5, "x", R"(,"datemodif":"2/5/1999","datecreation":null)") +
           document("CO", 6, "x", R"(,"couleur":"red")") + document("CO", 7, "x", R"(,"couleur":"#12345")") +
           document("CO", 8, "x", R"(,"motscles":["a","",null])")),
        (QStringList{u"E9357 documents.jsonl:1 255"_s, u"E9357 documents.jsonl:2 255"_s, u"E9364 documents.jsonl:3 "_s,
                     u"E9353 documents.jsonl:4 1999-02-30"_s, u"E9353 documents.jsonl:5 2/5/1999"_s,
                     u"E9362 documents.jsonl:6 red"_s, u"E9362 documents.jsonl:7 #12345"_s}));
}

TEST_F(ProblemesDeSource, BodiesAndTheirMarkup) {
    EXPECT_EQ(
        de("{\"collection\":\"CO\",\"numero\":1,\"titre\":\"T\"}\n"
           "{\"collection\":\"CO\",\"numero\":2,\"titre\":\"T\",\"corps\":[],\"rtf\":\"a.rtf\"}\n"
           "{\"collection\":\"CO\",\"numero\":3,\"titre\":\"T\",\"corps\":[{\"style\":\"gras\",\"texte\":\"x\"}]}\n" +
           document("CO", 4, "a **b") + document("CO", 5, "{L=x|CO1}") + document("CO", 6, "{I=X}") +
           document("CO", 7, "{I=CO000099}")),
        (QStringList{u"E9363 documents.jsonl:1 "_s, u"E9363 documents.jsonl:2 "_s, u"E9350 documents.jsonl:3 gras"_s,
                     u"E9351 documents.jsonl:4 a **b"_s, u"E9351 documents.jsonl:5 CO1"_s,
                     u"E9351 documents.jsonl:6 X"_s, u"E9348 documents.jsonl:7 CO000099"_s}));
}

TEST_F(ProblemesDeSource, RichTextFiles) {
    const auto avec = [](int numero, const QByteArray& chemin) {
        return "{\"collection\":\"CO\",\"numero\":" + QByteArray::number(numero) + ",\"titre\":\"T\",\"rtf\":\"" +
               chemin + "\"}\n";
    };
    ecrit(u"rtf/pas.rtf"_s, "bonjour");
    QFile::link(u"/etc/hostname"_s, source() + u"/rtf/lien.rtf"_s);
    EXPECT_EQ(de(avec(1, "absent.rtf") + avec(2, "rtf") + avec(3, "../velm2000.dat") + avec(4, "/etc/hostname") +
                 avec(5, "rtf/pas.rtf") + avec(6, "rtf/lien.rtf") + avec(7, "rtf/../../x")),
              (QStringList{u"E9352 documents.jsonl:1 absent.rtf"_s, u"E9330 documents.jsonl:2 rtf"_s,
                           u"E9366 documents.jsonl:3 ../velm2000.dat"_s, u"E9366 documents.jsonl:4 /etc/hostname"_s,
                           u"E9365 documents.jsonl:5 rtf/pas.rtf"_s, u"E9366 documents.jsonl:6 rtf/lien.rtf"_s,
                           u"E9366 documents.jsonl:7 rtf/../../x"_s}));
}

TEST_F(ProblemesDeSource, FilesThatCannotBeReadSayWhy) {
    const NobodyWaits watch;
    const auto obstacles = [this] {
        QList<Obstacle> tous;
        for (const Probleme& p : compile().problemes) {
            EXPECT_EQ(p.texte, Texte::FichierIllisible) << texte(p).toStdString();
            tous << p.obstacle;
        }
        return tous;
    };
    documents("{\"collection\":\"CO\",\"numero\":1,\"titre\":\"T\",\"rtf\":\"rtf/a.rtf\"}\n");
    for (const auto& autre : {putPipe, putFolder}) {
        autre(source() + u"/rtf/a.rtf"_s);
        EXPECT_EQ(obstacles(), QList{Obstacle::NotPlain});
    }
    documents(document("CO", 1, "x"));
    putPipe(source() + u"/collection.json"_s);
    putDevice(source() + u"/arborescence.jsonl"_s);
    EXPECT_EQ(obstacles(), (QList{Obstacle::NotPlain, Obstacle::NotPlain}));
    QFile::remove(source() + u"/collection.json"_s);
    QFile::remove(source() + u"/arborescence.jsonl"_s);
    QFile::remove(source() + u"/documents.jsonl"_s);
    EXPECT_EQ(obstacles(), QList{Obstacle::Missing});
    putPipe(source() + u"/documents.jsonl"_s);
    EXPECT_EQ(obstacles(), QList{Obstacle::NotPlain});
    QFile::remove(source() + u"/documents.jsonl"_s);
    documents("");
    ASSERT_TRUE(QFile::setPermissions(dossier_.path(), QFile::Permissions(0x7777)));
    ASSERT_TRUE(QFile::setPermissions(source() + u"/documents.jsonl"_s, QFile::Permissions()));
    const WithoutRights personne;
    EXPECT_EQ(obstacles(), QList{Obstacle::Denied});
}

TEST_F(ProblemesDeSource, ThoseOfABodyInRichTextNameItsFile) {
    ecrit(u"rtf/a.rtf"_s, "{\\rtf1 \\{I=X\\}\\{L=x|CO000099\\}\\{S=y}");
    ecrit(u"rtf/b.rtf"_s, "{\\rtf1 \\{I=CO000002\\}}");
    documents("{\"collection\":\"CO\",\"numero\":1,\"titre\":\"T\",\"rtf\":\"rtf/a.rtf\"}\n"
              "{\"collection\":\"CO\",\"numero\":2,\"titre\":\"T\",\"rtf\":\"rtf/b.rtf\"}\n" +
              document("CO", 3, "{I=X}"));
    QStringList corps;
    for (const Probleme& p : compile().problemes)
        corps << texte(p) + u" <"_s + p.corps + u'>';
    EXPECT_EQ(
        corps,
        (QStringList{u"E9351 documents.jsonl:1 X <rtf/a.rtf>"_s, u"W9347 documents.jsonl:1 CO000099 <rtf/a.rtf>"_s,
                     u"W9351 documents.jsonl:1 {S=y <rtf/a.rtf>"_s,
                     u"E9349 documents.jsonl:2 CO000002 → CO000002 <rtf/b.rtf>"_s, u"E9351 documents.jsonl:3 X <>"_s}));
}

TEST_F(ProblemesDeSource, InclusionsThatGoRound) {
    EXPECT_EQ(de(document("CO", 1, "{I=CO000002}") + document("CO", 2, "a {I=CO000003}{I=CO000004}") +
                 document("CO", 3, "{I=CO000001}") + document("CO", 4, "x") + document("CO", 5, "{I=CO000005}") +
                 document("CO", 6, "{I=CO000004}{I=CO000004}")),
              (QStringList{u"E9349 documents.jsonl:3 CO000001 → CO000002 → CO000003 → CO000001"_s,
                           u"E9349 documents.jsonl:5 CO000005 → CO000005"_s}));
}

TEST_F(ProblemesDeSource, InclusionsThatMultiplyDoNotFillTheMemory) {
    QByteArray lignes = document("CO", 1, QByteArray("mot ").repeated(1000));
    for (int k = 2; k < 20; ++k) {
        const QByteArray cle = "{I=CO" + QByteArray::number(k - 1).rightJustified(6, '0') + "}";
        lignes += document("CO", k, cle.repeated(10));
    }
    EXPECT_EQ(de(lignes), QStringList{});
}

TEST_F(ProblemesDeSource, TreeNodes) {
    EXPECT_EQ(arbre(noeud("1", "0") + noeud("2", "9") + noeud("3", "4") + noeud("4", "3") + noeud("1", "0") +
                    noeud("5", "1", "EU") + noeud("6", "0", "ZZ") + noeud("0", "0") +
                    "{\"noeud\":7,\"collection\":\"CO\"}\n" +
                    "{\"collection\":\"CO\",\"libelle\":\"x\",\"autre\":1}\n"),
              (QStringList{u"E9354 arborescence.jsonl:2 9"_s, u"E9355 arborescence.jsonl:4 4"_s,
                           u"E9360 arborescence.jsonl:5 1"_s, u"E9361 arborescence.jsonl:6 1/CO"_s,
                           u"E9343 arborescence.jsonl:7 ZZ"_s, u"E9344 arborescence.jsonl:8 0"_s,
                           u"E9342 arborescence.jsonl:9 libelle"_s, u"W9359 arborescence.jsonl:10 autre"_s,
                           u"E9342 arborescence.jsonl:10 noeud"_s}));
}

TEST_F(ProblemesDeSource, ATreeDeeperThanTenLevels) {
    QByteArray lignes;
    for (int k = 1; k <= 12; ++k)
        lignes += noeud(QByteArray::number(k), QByteArray::number(k - 1));
    EXPECT_EQ(arbre(lignes), QStringList{u"E9344 arborescence.jsonl:11 11"_s});
}

TEST_F(ProblemesDeSource, NodesOfDocuments) {
    ecrit(u"arborescence.jsonl"_s, noeud("1", "0") + noeud("2", "0", "EU"));
    EXPECT_EQ(de(document("CO", 1, "x", ",\"noeud\":3") + document("CO", 2, "x", ",\"noeud\":2") +
                 document("CO", 3, "x") + document("JP", 4, "x")),
              (QStringList{u"E9346 documents.jsonl:1 3"_s, u"E9361 documents.jsonl:2 2/EU"_s,
                           u"W9342 documents.jsonl:3 noeud"_s}));
}

TEST_F(ProblemesDeSource, TheFileOfTheCollection) {
    EXPECT_EQ(collection("{\n\"titre\":1,\n\"styles\":{\"gras\":\"x\",\n\"note\":\"a}\"},\n"
                         "\"couleurs\":{\"XX\":\"#000000\",\"CO\":\"bleu\"},\n\"autre\":{}\n}"),
              (QStringList{u"E9358 collection.json:2 titre"_s, u"E9350 collection.json:3 gras"_s,
                           u"E9351 collection.json:4 a}"_s, u"E9343 collection.json:5 XX"_s,
                           u"E9362 collection.json:5 bleu"_s, u"W9359 collection.json:6 autre"_s}));
    EXPECT_EQ(collection("{\"typesdocuments\":[{\"numero\":1,\"libelle\":\"a\"},{\"numero\":1,\"libelle\":\"b\"},"
                         "{\"numero\":2},{\"libelle\":\"c\"}]}"),
              (QStringList{u"E9345 collection.json:1 b"_s, u"E9342 collection.json:1 libelle"_s,
                           u"E9342 collection.json:1 numero"_s}));
    EXPECT_EQ(collection("{"), QStringList{u"E9341 collection.json:1 2, "_s});
    EXPECT_EQ(collection("[]").size(), 1);
}

TEST_F(ProblemesDeSource, KindsThatTheCollectionDoesNotHave) {
    ecrit(u"collection.json"_s, R"({"typesdocuments":[{"numero":1,"libelle":"Loi"}]})");
    EXPECT_EQ(de(document("CO", 1, "x", ",\"type\":\"Loi\"") + document("CO", 2, "x", ",\"type\":\"Avis\"") +
                 document("CO", 3, "x", ",\"type\":null")),
              QStringList{u"E9356 documents.jsonl:2 Avis"_s});
}

} // namespace
} // namespace velm::test
