// The command line itself: what each command takes, says of itself and refuses.
#include "tests/outil/lance.h"

#include <QFile>

using namespace velm::test;

namespace {

struct Attendue {
    const char* nom;
    QStringList arguments; ///< as many as it takes
    QStringList options;   ///< all of its own
};

class OutilLigneTest : public OutilRechercheTest {
protected:
    void SetUp() override {
        const QString fichier = ecrit(u"b.dv2"_s, "VELMORante 2000 - DV2\r\nBaux\r\n");
        ASSERT_EQ(lance({u"dossiers"_s, u"cree"_s, magasin()}).code, 0);
        ASSERT_EQ(lance({u"dossiers"_s, u"importe"_s, fichier, u"--dossiers"_s, magasin()}).code, 0);
    }
    QString magasin() const { return dossier.filePath(u"dossiers.dat"_s); }
    static QString base() { return QStringLiteral(VELM_BINARY_DIR "/bin/velm2000.dat"); }
    static QString exemple() { return QStringLiteral(VELM_SOURCE_DIR "/collection/exemple"); }

    QString ecrit(const QString& nom, const QByteArray& octets) const {
        QFile fichier(dossier.filePath(nom));
        EXPECT_TRUE(fichier.open(QIODevice::WriteOnly));
        fichier.write(octets);
        return fichier.fileName();
    }

    QList<Attendue> commandes() const {
        const QString rtf = ecrit(u"a.rtf"_s, "{\\rtf1 a}");
        const QString cv2 = ecrit(u"a.cv2"_s, "VELMORante 2000 - CV2\r\n");
        const QString neuve = dossier.filePath(u"neuve.dat"_s);
        return {
            {"compiler", {exemple(), neuve}, {u"--json"_s, u"--sans-texte"_s}},
            {"synthese", {u"10"_s, neuve}, {u"--mots"_s, u"--json"_s, u"--sans-texte"_s}},
            {"info", {base()}, {u"--json"_s}},
            {"document",
             {u"CO000001"_s},
             {u"--texte"_s, u"--rtf"_s, u"--liens"_s, u"--condense"_s, u"--base"_s, u"--json"_s}},
            {"texte", {rtf}, {}},
            {"rtf", {rtf}, {}},
            {"formats", {rtf}, {}},
            {"dossiers cree", {neuve}, {}},
            {"dossiers liste", {}, {u"--dossiers"_s, u"--json"_s}},
            {"dossiers exporte", {u"1"_s, dossier.filePath(u"a.dv2"_s)}, {u"--dossiers"_s, u"--json"_s}},
            {"dossiers importe", {dossier.filePath(u"b.dv2"_s)}, {u"--dossiers"_s, u"--json"_s}},
            {"dossiers verifie", {}, {u"--dossiers"_s, u"--json"_s}},
            {"dossiers repare", {}, {u"--dossiers"_s, u"--json"_s}},
            {"mots", {u"contrat"_s, u"vente"_s}, {u"--types"_s, u"--ou"_s, u"--limite"_s, u"--base"_s, u"--json"_s}},
            {"rapide", {u"contrat"_s}, {u"--types"_s, u"--limite"_s, u"--base"_s, u"--json"_s}},
            {"index", {}, {u"--types"_s, u"--base"_s, u"--json"_s}},
            {"chrono", {}, {u"--types"_s, u"--de"_s, u"--a"_s, u"--base"_s, u"--json"_s}},
            {"criteres",
             {},
             {u"--texte"_s, u"--texte2"_s, u"--conjonction"_s, u"--negation"_s, u"--lieux"_s, u"--entier"_s,
              u"--entier2"_s, u"--casse"_s, u"--casse2"_s, u"--motcle"_s, u"--type"_s, u"--jour"_s, u"--mois"_s,
              u"--annee"_s, u"--types"_s, u"--base"_s, u"--json"_s, u"--sans-table"_s}},
            {"cv2", {cv2}, {u"--json"_s}}};
    }
    static const QHash<QString, QString>& valeurs() {
        static const QHash<QString, QString> toutes{
            {u"--mots"_s, u"5"_s},         {u"--base"_s, base()},        {u"--types"_s, u"CO"_s},
            {u"--de"_s, u"1999"_s},        {u"--a"_s, u"2005-02-18"_s},  {u"--limite"_s, u"3"_s},
            {u"--texte"_s, u"vente"_s},    {u"--texte2"_s, u"prix"_s},   {u"--lieux"_s, u"titre"_s},
            {u"--conjonction"_s, u"ou"_s}, {u"--motcle"_s, u"crédit"_s}, {u"--jour"_s, u"1"_s},
            {u"--mois"_s, u"2"_s},         {u"--annee"_s, u"2003"_s},    {u"--type"_s, u"1"_s}};
        return toutes;
    }
    /// The option with a value if this command takes it with one.
    QStringList avecvaleur(const Attendue& commande, const QString& option) const {
        const bool sans = option == u"--texte" && QString::fromLatin1(commande.nom) == u"document";
        const QString valeur = sans ? QString() : option == u"--dossiers"_s ? magasin() : valeurs().value(option);
        return valeur.isEmpty() ? QStringList{option} : QStringList{option, valeur};
    }
    static QString nom(const Attendue& commande) { return QString::fromLatin1(commande.nom); }
    /// What keeps the command from the store beside the program, when another option is tried.
    QStringList ailleurs(const Attendue& commande, const QString& option) const {
        const bool autre = commande.options.contains(u"--dossiers"_s) && option != u"--dossiers"_s;
        return autre ? QStringList{u"--dossiers"_s, magasin()} : QStringList();
    }
    static QStringList mots(const Attendue& commande) { return nom(commande).split(u' '); }
};

/// The words of a text that look like options.
QStringList optionsde(const QString& texte) {
    QStringList toutes;
    for (const QString& ligne : texte.split(u'\n')) {
        // What stands behind the colon is prose.
        for (const QString& mot : ligne.section(u':', 0, 0).split(QRegularExpression(u"[\\s,\\x{A0}]+"_s))) {
            if (mot.startsWith(u"--") && !toutes.contains(mot))
                toutes << mot;
        }
    }
    return toutes;
}

} // namespace

TEST_F(OutilLigneTest, EachHelpListsExactlyTheOptionsThatTheCommandTakes) {
    QStringList toutes{u"--help"_s, u"--version"_s};
    for (const Attendue& commande : commandes()) {
        const Sortie aide = lance(mots(commande) << u"--help"_s);
        EXPECT_EQ(aide.code, 0) << commande.nom;
        QStringList lues = optionsde(aide.texte);
        QStringList attendues = commande.options + QStringList{u"--help"_s};
        lues.sort();
        attendues.sort();
        EXPECT_EQ(lues, attendues) << commande.nom;
        toutes << commande.options;
        const QString usage = aide.texte.section(u'\n', 0, 0);
        EXPECT_TRUE(usage.startsWith(u"velmoutil "_s + nom(commande))) << qPrintable(usage);
        EXPECT_EQ(usage.endsWith(u" [OPTIONS]"), !commande.options.isEmpty()) << qPrintable(usage);
    }
    QStringList generales = optionsde(lance({u"--help"_s}).texte);
    toutes.removeDuplicates();
    toutes.sort();
    generales.sort();
    EXPECT_EQ(generales, toutes);
}

TEST_F(OutilLigneTest, EachOptionIsTakenOnceAndNoOther) {
    for (const Attendue& commande : commandes()) {
        for (const QString& option : commande.options) {
            QFile::remove(dossier.filePath(u"neuve.dat"_s));
            const QStringList prise = avecvaleur(commande, option);
            const Sortie sortie = lance(mots(commande) + commande.arguments + ailleurs(commande, option) + prise);
            EXPECT_EQ(sortie.code, 0) << commande.nom << ' ' << qPrintable(option) << sortie.erreurs.constData();
            EXPECT_EQ(lance(mots(commande) + commande.arguments + prise + prise).code, 2)
                << commande.nom << ' ' << qPrintable(option) << " twice";
            if (prise.size() == 2) {
                const Sortie sans = lance(mots(commande) + commande.arguments + QStringList{option});
                EXPECT_EQ(sans.code, 2) << commande.nom << ' ' << qPrintable(option);
                EXPECT_TRUE(sans.erreurs.contains(option.toUtf8())) << sans.erreurs.constData();
            }
        }
        for (const QString& option : {u"--inconnue"_s, u"--"_s + nom(commande), u"--js"_s, u"--json=1"_s}) {
            const Sortie sortie = lance(mots(commande) + QStringList{option} + commande.arguments);
            EXPECT_EQ(sortie.code, 2) << commande.nom << ' ' << qPrintable(option);
            EXPECT_TRUE(sortie.erreurs.contains(option.toUtf8())) << sortie.erreurs.constData();
        }
    }
}

TEST_F(OutilLigneTest, TheShortNameOfTheHelpIsTheSame) {
    EXPECT_EQ(lance({u"-h"_s}).code, 0);
    EXPECT_EQ(lance({u"-h"_s}).texte, lance({u"--help"_s}).texte);
    for (const Attendue& commande : commandes()) {
        EXPECT_EQ(lance(mots(commande) << u"-h"_s).texte, lance(mots(commande) << u"--help"_s).texte);
        // Wherever it stands, and whatever else does.
        EXPECT_EQ(lance(mots(commande) << u"x"_s << u"--inconnue"_s << u"-h"_s).code, 0) << commande.nom;
    }
}

TEST_F(OutilLigneTest, AnArgumentTooFewOrTooManyIsAnError) {
    for (const Attendue& commande : commandes()) {
        const bool ensemble = nom(commande) == u"mots" || nom(commande) == u"rapide";
        if (!ensemble) {
            QFile::remove(dossier.filePath(u"neuve.dat"_s));
            const Sortie trop = lance(mots(commande) + commande.arguments + QStringList{u"de-trop"_s});
            EXPECT_EQ(trop.code, 2) << commande.nom;
            EXPECT_TRUE(trop.texte.isEmpty());
            EXPECT_TRUE(trop.erreurs.contains("de-trop")) << trop.erreurs.constData();
            EXPECT_FALSE(QFile::exists(dossier.filePath(u"neuve.dat"_s))) << "nothing was done";
        }
        if (commande.arguments.isEmpty())
            continue;
        const Sortie peu = lance(mots(commande) + commande.arguments.mid(ensemble ? 2 : 1));
        EXPECT_EQ(peu.code, 2) << commande.nom;
        EXPECT_FALSE(peu.erreurs.isEmpty());
    }
    for (const QString& seule : {u"--help"_s, u"-h"_s, u"--version"_s}) {
        EXPECT_EQ(lance({seule}).code, 0);
        EXPECT_EQ(lance({seule, u"de-trop"_s}).code, 2) << qPrintable(seule);
    }
}

TEST_F(OutilLigneTest, WordsThatFollowOneAnotherAreOneLine) {
    const QStringList ensemble = cles(lance({u"mots"_s, u"consommateur contrat"_s, u"--json"_s}));
    EXPECT_FALSE(ensemble.isEmpty());
    EXPECT_EQ(cles(lance({u"mots"_s, u"consommateur"_s, u"--json"_s, u"contrat"_s})), ensemble);
}

TEST_F(OutilLigneTest, BehindTwoDashesEverythingIsAnArgument) {
    EXPECT_EQ(lance({u"rapide"_s, u"--types"_s, u"CO"_s, u"--"_s, u"--limite"_s}).code, 0);
    EXPECT_EQ(lance({u"rapide"_s, u"--"_s}).code, 2);
    EXPECT_TRUE(lance({u"texte"_s, u"--"_s, u"--absent.rtf"_s}).erreurs.contains("--absent.rtf"));
}

TEST_F(OutilLigneTest, AKeyIsReadAsTheReaderReadsIt) {
    const QString texte = lance({u"document"_s, u"CO000088"_s}).texte;
    ASSERT_FALSE(texte.isEmpty());
    for (const QString& cle : {u"co000088"_s, u"Co88"_s, u"cO 88"_s, u"CO88"_s}) {
        const Sortie sortie = lance({u"document"_s, cle});
        EXPECT_EQ(sortie.code, 0) << qPrintable(cle);
        EXPECT_EQ(sortie.texte, texte) << qPrintable(cle);
    }
    EXPECT_EQ(lance({u"document"_s, u"co88"_s, u"--json"_s}).json().value(u"cle"_s).toString(), u"CO000088");
    for (const QString& cle : {u"CO"_s, u"CO88x"_s, u"article"_s, u"ZZ000088"_s, u"CO999999"_s, u""_s}) {
        const Sortie sortie = lance({u"document"_s, cle});
        EXPECT_EQ(sortie.code, 4) << qPrintable(cle);
        EXPECT_TRUE(sortie.erreurs.contains(cle.toUtf8()));
    }
}
