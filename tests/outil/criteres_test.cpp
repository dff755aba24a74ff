// Searching by criteria from the command line, and showing the files that keep criteria.
#include "tests/outil/lance.h"

#include <QFile>

using namespace velm::test;

namespace {

class OutilCriteresTest : public OutilRechercheTest {
protected:
    QStringList trouves(const QStringList& options) const {
        const Sortie sortie = lance(QStringList{u"criteres"_s, u"--json"_s} + options);
        EXPECT_EQ(sortie.code, 0) << sortie.erreurs.constData();
        return cles(sortie);
    }
    QString ecrit(const QByteArray& octets) const {
        QFile fichier(dossier.filePath(u"recherche.cv2"_s));
        EXPECT_TRUE(fichier.open(QIODevice::WriteOnly));
        fichier.write(octets);
        return fichier.fileName();
    }
};

const QByteArray fichiercv2 =
    "VELMORante 2000 - CV2\r\n1\r\nvente\r\n1\r\n0\r\nrapide\r\n2\r\n(Tous)\r\n1\r\n0\r\n1\r\n"
    "cr\xE9"
    "dit\r\n1\r\n0\r\net\r\n\r\n0\r\n1\r\nArr\xEAt\r\n\r\n2\r\n2003\r\nX X        \r\n3\r\n"
    "5\r\n4\r\n0\r\n1\r\n2\r\n3\r\nCO\r\n000001\r\nTitre un\r\na\r\nb\r\n\r\nCO000001\r\n"
    "JP\r\n000007\r\nTitre sept\r\n\r\n\r\n\r\nJP000007\r\n";

} // namespace

TEST_F(OutilCriteresTest, EveryCriterionIsAnOption) {
    const QStringList tous = trouves({});
    ASSERT_GE(tous.size(), 300);
    const QStringList garantie = trouves({u"--texte"_s, u"garantie"_s});
    ASSERT_GT(garantie.size(), 3);
    ASSERT_LT(garantie.size(), tous.size());
    EXPECT_EQ(trouves({u"--texte"_s, u"GARANTIE"_s}), garantie);
    EXPECT_EQ(trouves({u"--texte2"_s, u"garantie"_s}), garantie);
    EXPECT_LT(trouves({u"--texte"_s, u"GARANTIE"_s, u"--casse"_s}).size(), garantie.size());
    EXPECT_LT(trouves({u"--texte"_s, u"garanti"_s, u"--entier"_s, u"--lieux"_s, u"contenu"_s}).size(), garantie.size());
    EXPECT_EQ(trouves({u"--texte"_s, u"garantie"_s, u"--negation"_s}).size(), tous.size() - garantie.size());
    const qsizetype et = trouves({u"--texte"_s, u"garantie"_s, u"--texte2"_s, u"vendeur"_s}).size();
    EXPECT_GT(et, 0);
    EXPECT_EQ(trouves({u"--texte"_s, u"garantie"_s, u"--texte2"_s, u"vendeur"_s, u"--conjonction"_s, u"sauf"_s}).size(),
              garantie.size() - et);
    for (const QString& autre : {u"ou"_s, u"ousauf"_s})
        EXPECT_EQ(trouves({u"--texte"_s, u"garantie"_s, u"--texte2"_s, u"vendeur"_s, u"--conjonction"_s, autre}),
                  garantie);
    EXPECT_LT(trouves({u"--texte"_s, u"garantie"_s, u"--lieux"_s, u"titre,source"_s}).size(), garantie.size());
    for (const QString& cle : trouves({u"--texte"_s, u"garantie"_s, u"--types"_s, u"jpco"_s}))
        EXPECT_TRUE(cle.startsWith(u"CO") || cle.startsWith(u"JP")) << qPrintable(cle);
}

TEST_F(OutilCriteresTest, KeywordKindAndDateNarrow) {
    const QJsonObject premier =
        lance({u"criteres"_s, u"--json"_s}).json().value(u"documents"_s).toArray().first().toObject();
    const QString cle = premier.value(u"cle"_s).toString();
    const QString motcle = premier.value(u"motscles"_s).toArray().first().toString();
    ASSERT_FALSE(motcle.isEmpty());
    EXPECT_TRUE(trouves({u"--motcle"_s, motcle}).contains(cle));
    EXPECT_TRUE(trouves({u"--motcle"_s, motcle + u"x"_s}).isEmpty());
    const QJsonObject document = lance({u"document"_s, cle, u"--json"_s}).json();
    const QString type = document.value(u"type"_s).toString();
    ASSERT_FALSE(type.isEmpty());
    const QStringList dutype = trouves({u"--type"_s, type});
    EXPECT_TRUE(dutype.contains(cle));
    EXPECT_LT(dutype.size(), trouves({}).size());
    EXPECT_TRUE(trouves({u"--jour"_s, u"31"_s, u"--mois"_s, u"2"_s}).isEmpty());
    EXPECT_EQ(trouves({u"--annee"_s, u"4"_s}), trouves({u"--annee"_s, u"2004"_s}));
}

TEST_F(OutilCriteresTest, WithoutTheTableOfTextsTheSameIsFound) {
    for (const QString& texte : {u"garantie"_s, u"l’acheteur"_s, u"{S="_s, u"zyxwvut"_s})
        EXPECT_EQ(trouves({u"--texte"_s, texte, u"--sans-table"_s}), trouves({u"--texte"_s, texte}))
            << qPrintable(texte);
}

TEST_F(OutilCriteresTest, WrongValuesAreTold) {
    for (const QStringList& options :
         {QStringList{u"--conjonction"_s, u"xou"_s}, QStringList{u"--lieux"_s, u"titre,pied"_s},
          QStringList{u"--jour"_s, u"32"_s}, QStringList{u"--mois"_s, u"13"_s}, QStringList{u"--types"_s, u"XX"_s},
          QStringList{u"--type"_s, u"Recette"_s}, QStringList{u"--texte"_s}, QStringList{u"--inconnue"_s},
          QStringList{u"garantie"_s}}) {
        const Sortie sortie = lance(QStringList{u"criteres"_s} + options);
        EXPECT_EQ(sortie.code, 2) << qPrintable(options.join(u' '));
        EXPECT_TRUE(sortie.texte.isEmpty());
        EXPECT_FALSE(sortie.erreurs.isEmpty());
    }
    EXPECT_EQ(lance({u"criteres"_s, u"--base"_s, dossier.filePath(u"absente.dat"_s)}).code, 1);
}

TEST_F(OutilCriteresTest, ACriteriaFileIsShown) {
    const QString chemin = ecrit(fichiercv2);
    const Sortie texte = lance({u"cv2"_s, chemin});
    EXPECT_EQ(texte.code, 0);
    for (const QString& ligne :
         {u"Collections\u00A0: CO JP"_s, u"Mots\u00A0: vente"_s, u"Recherche rapide\u00A0: rapide"_s,
          u"Mot clé\u00A0: (Tous)"_s, u"Type\u00A0: Arrêt"_s, u"Date\u00A0: 2/2003"_s, u"Lieux\u00A0: Titre, Source"_s,
          u"Premier texte\u00A0: crédit (Mot entier)"_s, u"CO000001\tTitre un"_s, u"JP000007\tTitre sept"_s,
          u"2 documents"_s})
        EXPECT_TRUE(texte.texte.split(u'\n').contains(ligne)) << qPrintable(ligne) << '\n' << qPrintable(texte.texte);
    const Sortie json = lance({u"cv2"_s, chemin, u"--json"_s});
    EXPECT_EQ(cles(json), QStringList({u"CO000001"_s, u"JP000007"_s}));
    EXPECT_EQ(json.json().value(u"mot1"_s).toString(), u"crédit");
    const QJsonObject criteres = json.json().value(u"criteres"_s).toObject();
    EXPECT_EQ(criteres.value(u"ongletrecherche"_s).toInt(), 1);
    EXPECT_EQ(criteres.value(u"types"_s).toArray(), QJsonArray({u"CO"_s, u"JP"_s}));
    EXPECT_EQ(criteres.value(u"combonombre"_s).toInt(), 2);
    EXPECT_TRUE(criteres.value(u"emplacement"_s).toObject().value(u"source"_s).toBool());
    EXPECT_TRUE(criteres.value(u"texterech"_s).toArray().at(0).toObject().value(u"motentier"_s).toBool());
}

TEST_F(OutilCriteresTest, WhatIsNoCriteriaFileIsTold) {
    EXPECT_EQ(lance({u"cv2"_s}).code, 2);
    EXPECT_EQ(lance({u"cv2"_s, u"a"_s, u"b"_s}).code, 2);
    EXPECT_EQ(lance({u"cv2"_s, u"a"_s, u"--types"_s}).code, 2);
    EXPECT_EQ(lance({u"cv2"_s, dossier.filePath(u"absent.cv2"_s)}).code, 1);
    for (const QByteArray& faux : {QByteArray(), QByteArray("VELMORante 2000 - DV2\r\n"), QByteArray("\0\xFF", 2)}) {
        const Sortie sortie = lance({u"cv2"_s, ecrit(faux)});
        EXPECT_EQ(sortie.code, 1);
        EXPECT_TRUE(sortie.texte.isEmpty());
        EXPECT_FALSE(sortie.erreurs.isEmpty());
    }
}

TEST_F(OutilCriteresTest, ACutCriteriaFileShowsWhatItHolds) {
    for (qsizetype taille = 23; taille < fichiercv2.size(); taille += 17) {
        const Sortie sortie = lance({u"cv2"_s, ecrit(fichiercv2.first(taille)), u"--json"_s});
        ASSERT_EQ(sortie.code, 0) << taille;
        EXPECT_FALSE(sortie.json().isEmpty()) << taille;
    }
}
