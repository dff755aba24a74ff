#include "collection/fabrique.h"
#include "collection/source.h"
#include "collection/temporaire.h"
#include "core/corpus.h"
#include "tests/collection/dossier.h"
#include "tests/support/full_disk.h"

#include <QProcess>

namespace velm::test {
namespace {

using Etat = ResultatCompilation::Etat;

class Compilation : public DossierSource {};

QString rangee(const Recordset& table, const QStringList& champs) {
    QStringList valeurs;
    for (const QString& champ : champs)
        valeurs << (table.isNull(champ) ? u"-"_s : table.text(champ));
    return valeurs.join(u'|');
}

QStringList rangees(Database& base, const QString& nom, const QStringList& champs) {
    QStringList resultat;
    const auto table = base.openTable(nom);
    for (table->moveFirst(); !table->eof(); table->moveNext())
        resultat << rangee(*table, champs);
    return resultat;
}

TEST_F(Compilation, EveryTableIsFilled) {
    ecrit(u"arborescence.jsonl"_s,
          "{\"noeud\":5,\"parent\":0,\"collection\":\"CO\",\"ordre\":1,\"libelle\":\"Code\"}\n"
          "{\"noeud\":7,\"parent\":5,\"collection\":\"CO\",\"ordre\":1,\"libelle\":\"Titre I\"}\n");
    documents("{\"collection\":\"CO\",\"numero\":12,\"titre\":\"Vente\",\"motscles\":[\"vente\",\"Prix\"],"
              "\"source\":\"JO ; loi n° 99-1 du 2 mai\",\"date\":\"1999-05-02\",\"type\":\"Loi\",\"noeud\":7,"
              "\"numarticle\":\"L1-2\",\"numtitre\":\"99-1\",\"couleur\":\"#FF8000\",\"datecreation\":\"2001-01-31\","
              "\"corps\":[{\"style\":\"alinea\",\"texte\":\"Voir {L=la suite|AD000003}.\"}]}\n" +
              document("AD", 3, "Suite", ",\"motscles\":[\"Vente\"],\"type\":\"Avis\""));
    const ResultatCompilation resultat = compile();
    ASSERT_EQ(resultat.etat, Etat::Faite);
    EXPECT_EQ(textes(resultat), QStringList{});
    const auto base = ouvre();
    EXPECT_EQ(
        rangees(*base, u"données"_s,
                {u"référence"_s, u"numart"_s, u"titre"_s, u"motclé1"_s, u"motclé2"_s, u"motclé3"_s, u"Source"_s,
                 u"Date"_s, u"datecreation"_s, u"datemodif"_s, u"typededocument"_s, u"numeroarborescence"_s,
                 u"BackColor"_s}),
        (QStringList{u"AD|000003|Titre 3|Vente|-|-|-|-|-|-|Avis|0|16777215"_s,
                     u"CO|000012|Vente|vente|Prix|-|JO ; loi n° 99-1 du 2 mai|1999-05-02|2001-01-31|-|Loi|7|33023"_s}));
    EXPECT_EQ(
        rangees(*base, u"arborescences"_s,
                {u"numerodutype"_s, u"dépendance"_s, u"référence"_s, u"ordre"_s, u"typededonnées"_s, u"nbarticles"_s}),
        (QStringList{u"5|0|CO|1|Code|0"_s, u"7|5|CO|1|Titre I|1"_s}));
    EXPECT_EQ(rangees(*base, u"paramètres"_s, {u"nbarticles"_s}),
              QStringList{u"000001"_s + u"000000"_s.repeated(6) + u"000001"_s + u"000000"_s.repeated(3)});
    EXPECT_EQ(rangees(*base, u"motclés"_s, {u"motcle"_s, u"nbarticle"_s}), (QStringList{u"Prix|1"_s, u"Vente|2"_s}));
    EXPECT_EQ(rangees(*base, u"typedocument"_s, {u"typedocument"_s, u"numerodutype"_s}),
              (QStringList{u"Avis|1"_s, u"Loi|2"_s}));
    EXPECT_EQ(rangees(*base, u"liens"_s,
                      {u"référencedépart"_s, u"numartdépart"_s, u"référencearrivée"_s, u"numartarrivée"_s}),
              QStringList{u"CO|000012|AD|000003"_s});
    EXPECT_EQ(
        rangees(*base, u"generelien"_s, {u"référence"_s, u"numart"_s, u"numarticle"_s, u"numtitre"_s, u"titre"_s}),
        QStringList{u"CO|000012|L1-2|99-1|loi n° 99-1 du 2 mai"_s});
    EXPECT_EQ(rangees(*base, u"dico"_s, {u"mot"_s}), (QStringList{u"LA"_s, u"SUITE"_s, u"VOIR"_s}));
    const auto dico = base->openTable(u"dico"_s);
    dico->setIndex(u"primarykey"_s);
    dico->seek(Seek::Equal, u"SUITE"_s);
    EXPECT_EQ(dico->bytes(u"liste"_s), QByteArray("A\0\0\x0CH\0\0\3", 8));
    const auto donnees = base->openTable(u"données"_s);
    donnees->setIndex(u"primarykey"_s);
    donnees->seek(Seek::Equal, u"CO"_s, u"000012"_s);
    EXPECT_TRUE(donnees->text(u"contenu"_s).startsWith(u"{\\rtf1"_s));
    EXPECT_TRUE(donnees->text(u"contenu"_s).contains(u"la suite|AD000003"_s));
    EXPECT_TRUE(base->check());
    EXPECT_EQ(resultat.comptes.documents, 2);
    EXPECT_EQ(resultat.comptes.mots, 3);
}

TEST_F(Compilation, TheTitleOfAnArticlesText) {
    ecrit(u"arborescence.jsonl"_s, "{\"noeud\":1,\"collection\":\"EU\",\"libelle\":\"Directive 2019/882\"}\n"
                                   "{\"noeud\":2,\"parent\":1,\"collection\":\"EU\",\"libelle\":\"Annexe\"}\n");
    documents(document("EU", 1, "x", ",\"noeud\":2,\"numtitre\":\"2019/882\",\"source\":\"JO, 2019/882\"") +
              document("EU", 2, "x", ",\"noeud\":2,\"numarticle\":\"3\"") +
              document("EU", 3, "x", ",\"noeud\":2,\"numtitre\":\"9\",\"titretexte\":\"Neuf\"") +
              document("CO", 4, "x", ",\"numtitre\":\"77\""));
    ASSERT_TRUE(compile().faite());
    QStringList titres = rangees(*ouvre(), u"generelien"_s, {u"référence"_s, u"numart"_s, u"titre"_s});
    titres.sort();
    EXPECT_EQ(titres, (QStringList{u"CO|000004|Titre 4"_s, u"EU|000001|Directive 2019/882"_s,
                                   u"EU|000002|Directive 2019/882"_s, u"EU|000003|Neuf"_s}));
}

TEST_F(Compilation, ThePublishersKindsKeepTheirNumbersAndOrder) {
    ecrit(u"collection.json"_s,
          R"({"titre":"T","typesdocuments":[{"numero":9,"libelle":"Loi"},{"numero":2,"libelle":"Avis"}],
                                    "couleurs":{"CO":"#000001"}})");
    documents(document("CO", 1, "x", ",\"type\":\"Avis\""));
    ASSERT_TRUE(compile().faite());
    EXPECT_EQ(rangees(*ouvre(), u"typedocument"_s, {u"typedocument"_s, u"numerodutype"_s, u"ordre"_s}),
              (QStringList{u"Loi|9|1"_s, u"Avis|2|2"_s}));
    EXPECT_EQ(rangees(*ouvre(), u"données"_s, {u"BackColor"_s}), QStringList{u"65536"_s});
}

TEST_F(Compilation, TheTitleOfTheCollectionStandsInTheBase) {
    documents(document("CO", 1, "x"));
    ASSERT_TRUE(compile().faite());
    const auto titre = [this] {
        Corpus corpus;
        EXPECT_EQ(corpus.connecte(base()), OpenError::None);
        return corpus.titre();
    };
    EXPECT_EQ(titre(), QString()) << "none was given";
    ecrit(u"collection.json"_s, R"({"titre":" Œuvres – l’essai "})");
    ASSERT_TRUE(compile().faite());
    EXPECT_EQ(titre(), u"Œuvres – l’essai");
}

TEST_F(Compilation, SeveralDocumentFilesAreReadInTheOrderOfTheirNames) {
    ecrit(u"documents-2.jsonl"_s, document("CO", 1, "deux"));
    ecrit(u"documents-1.jsonl"_s, "\xEF\xBB\xBF" + document("CO", 1, "un") + "\r\n   \n" + document("CO", 2, "x"));
    EXPECT_EQ(textes(compile()), QStringList{u"E9345 documents-2.jsonl:1 CO000001"_s});
}

TEST_F(Compilation, EqualSourcesGiveEqualBytes) {
    QByteArray lignes;
    for (int k = 1; k < 300; ++k)
        lignes += document("CO", k, "mot" + QByteArray::number(k % 17) + "x lorem {L=a|CO000001}");
    documents(lignes);
    ASSERT_TRUE(compile().faite());
    const QByteArray premiers = octets();
    ASSERT_FALSE(premiers.isEmpty());
    ASSERT_TRUE(compile().faite());
    EXPECT_EQ(octets(), premiers);
    EXPECT_EQ(restes(), QStringList{u"velm2000.dat"_s});
}

TEST_F(Compilation, ProgressIsToldStepByStep) {
    documents(document("CO", 1, "un mot"));
    QList<Etape> etapes;
    qint64 dernier = 0;
    ASSERT_TRUE(velm::compile(source(), base(), [&](Etape etape, qint64 fait, qint64 total) {
                    if (!etapes.contains(etape))
                        etapes << etape;
                    EXPECT_LE(fait, total);
                    dernier = etape == Etape::MiseEnForme ? fait : dernier;
                }).faite());
    EXPECT_EQ(etapes, (QList<Etape>{Etape::Lecture, Etape::MiseEnForme, Etape::Classement, Etape::Ecriture}));
    EXPECT_EQ(dernier, 1);
}

TEST_F(Compilation, AWarningDoesNotStopTheCompiler) {
    documents(document("CO", 1, "{L=x|CO000009}", ",\"bizarre\":[1]"));
    const ResultatCompilation resultat = compile();
    EXPECT_TRUE(resultat.faite());
    EXPECT_EQ(textes(resultat),
              (QStringList{u"W9359 documents.jsonl:1 bizarre"_s, u"W9347 documents.jsonl:1 CO000009"_s}));
    EXPECT_EQ(resultat.comptes.liens, 0);
}

TEST_F(Compilation, AfterAnErrorTheOldBaseStandsAndNothingElse) {
    documents(document("CO", 1, "bon"));
    ASSERT_TRUE(compile().faite());
    const QByteArray avant = octets();
    documents(document("CO", 1, "bon") + document("CO", 2, "{S=x}"));
    EXPECT_EQ(compile().etat, Etat::SourceIncorrecte);
    EXPECT_EQ(octets(), avant);
    EXPECT_EQ(restes(), QStringList{u"velm2000.dat"_s});
}

TEST_F(Compilation, AFullDiskLeavesNoHalfFile) {
    QByteArray lignes;
    for (int k = 1; k < 400; ++k)
        lignes += document("CO", k, QByteArray("texte ").repeated(100));
    documents(lignes);
    for (const rlim_t octets : {4096U, 60'000U, 200'000U}) {
        const FullDisk plein(octets);
        EXPECT_NE(compile().etat, Etat::Faite);
        EXPECT_EQ(restes(), QStringList{});
    }
    EXPECT_TRUE(compile().faite());
}

TEST_F(Compilation, AFullDiskIsToldAsSuch) {
    documents(document("CO", 1, QByteArray("texte ").repeated(100'000)));
    const SourceDossier source(this->source());
    BaseTemporaire temporaire(base());
    ASSERT_NE(temporaire.base(), nullptr);
    // What the engine says on a disk without room it also says of a file that may not grow.
    ASSERT_TRUE(temporaire.base()->execute(u"PRAGMA max_page_count=40"_s));
    const BilanDeFabrique bilan = fabriquebase(source, *temporaire.base(), {}, true);
    EXPECT_FALSE(bilan.ecrit);
    EXPECT_EQ(bilan.obstacle, Obstacle::Full);
    temporaire.echoue(bilan.obstacle, bilan.raison);
    EXPECT_EQ(temporaire.etat(), Etat::DisquePlein);
    EXPECT_EQ(restes(), QStringList{});
}

TEST_F(Compilation, APlaceThatCannotBeWrittenIsTold) {
    documents(document("CO", 1, "x"));
    EXPECT_EQ(velm::compile(source(), dossier_.filePath(u"absent/velm2000.dat"_s)).etat, Etat::EcritureImpossible);
    const ResultatCompilation dossier = velm::compile(source(), source());
    EXPECT_EQ(dossier.etat, Etat::EcritureImpossible);
    EXPECT_FALSE(dossier.raison.isEmpty());
}

TEST_F(Compilation, ASourceWithoutDocumentsIsTold) {
    EXPECT_EQ(textes(compile()), QStringList{u"E9330 documents.jsonl:0 documents.jsonl"_s});
    const ResultatCompilation resultat = velm::compile(dossier_.filePath(u"absent"_s), base());
    EXPECT_EQ(resultat.etat, Etat::SourceIncorrecte);
    EXPECT_EQ(resultat.problemes.front().texte, Texte::FichierIllisible);
    EXPECT_EQ(resultat.problemes.front().obstacle, Obstacle::Missing);
    const ResultatCompilation fichier = velm::compile(source() + u"/documents.jsonl"_s, base());
    EXPECT_EQ(fichier.problemes.front().obstacle, Obstacle::Missing);
    documents("");
    EXPECT_EQ(velm::compile(source() + u"/documents.jsonl"_s, base()).problemes.front().obstacle, Obstacle::NotFolder);
    EXPECT_EQ(restes(), QStringList{});
}

TEST_F(Compilation, AProblemBecomesASentence) {
    const auto textes = [](Texte lequel) {
        const int id = static_cast<int>(lequel);
        return id == 9340   ? u"%1, ligne %2 : %3"_s
               : id == 9788 ? u"%1 : %2"_s
               : id == 9379 ? u"avertissement"_s
                            : u"le nœud %1 est à %2"_s;
    };
    const Probleme p{Texte{9361}, true, u"a.jsonl"_s, 12, {u"7 %2"_s, u"EU"_s}};
    EXPECT_EQ(phrase(p, textes), u"a.jsonl, ligne 12 : avertissement : le nœud 7 %2 est à EU"_s);
    EXPECT_EQ(phrase({Texte{9361}, false, {}, 0, {u"7"_s, u"EU"_s}}, textes), u"le nœud 7 est à EU"_s);
}

TEST_F(Compilation, AProblemOfAFileOrABodySaysWhich) {
    const auto textes = [](Texte lequel) {
        const int id = static_cast<int>(lequel);
        return id == 9330   ? u"%1 : %2"_s
               : id == 9533 ? u"refusé."_s
               : id == 9542 ? u"%1 (%2, ligne %3) : %4"_s
               : id == 9351 ? u"balise « %1 »"_s
                            : QString();
    };
    EXPECT_EQ(phrase({Texte::FichierIllisible, false, u"a.jsonl"_s, 0, {u"a.jsonl"_s}, Obstacle::Denied}, textes),
              u"a.jsonl : refusé."_s);
    EXPECT_EQ(
        phrase({Texte::BalisageIncorrect, false, u"a.jsonl"_s, 3, {u"{S"_s}, Obstacle::None, u"rtf/%1.rtf"_s}, textes),
        u"rtf/%1.rtf (a.jsonl, ligne 3) : balise « {S »"_s);
}

} // namespace
} // namespace velm::test
