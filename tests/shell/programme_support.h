#pragma once
// The real program on a small base of its own, with a scripted user.
#include "core/cle.h"
#include "core/langue.h"
#include "core/schemas.h"
#include "document/ui/textes.h"
#include "platform/engine/recordset.h"
#include "platform/widgets/text/richtextbox.h"
#include "shell/ecrangeneral.h"
#include "shell/programme.h"
#include "tests/support/dialogues_script.h"
#include "tests/support/outside_script.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

namespace velm::test {

struct DocumentEssai {
    QString cle;
    QString titre;
    QByteArray contenu;
    int couleur = 0xFFFFFF;
};

class ProgrammeTest : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(dossier.isValid());
        ASSERT_TRUE(QDir(dossier.path()).mkpath(QStringLiteral("langues")));
        ASSERT_TRUE(QFile::copy(QStringLiteral(VELM_SOURCE_DIR "/langues/RES2000.FR"),
                                dossier.filePath(QStringLiteral("langues/RES2000.FR"))));
        ASSERT_TRUE(
            QFile::copy(QStringLiteral(VELM_SOURCE_DIR "/master.ini"), dossier.filePath(QStringLiteral("master.ini"))));
        ecritbase();
        // A tip would stand before everything else.
        regle(u"OPTIONS", u"TIPS", QStringLiteral("0"));
        // Somebody who has laid windows beside one another before: otherwise they all fill the frame.
        regle(u"POSITIONFORME", u"WINDOWSSTATE10", QStringLiteral("0"));
        // Windows that were open before: a first one shows the contents.
        for (int indice = 0; indice < nombredecollections; ++indice)
            regle(u"POSITIONFORME", QStringLiteral("WINDOWSARBRE%1").arg(indice), QStringLiteral("0"));
    }
    void TearDown() override { programme.reset(); }

    virtual std::vector<DocumentEssai> documents() const {
        return {{QStringLiteral("CO000001"), QStringLiteral("Article premier"),
                 "{\\rtf1\\ansi Voir \\{L=l\\'92article 2|CO000002\\} et \\{U=le site|https://example.org\\} ou "
                 "\\{E=nous|a@example.org\\}.\\par}"},
                {QStringLiteral("CO000002"), QStringLiteral("Article 2"), "{\\rtf1\\ansi Deux.\\par}", 0xF0FFFF},
                {QStringLiteral("JP000007"), QStringLiteral("Un arr\u00EAt"), "{\\rtf1\\ansi Trois.\\par}"}};
    }

    virtual void ecritbase() const {
        const auto base = Database::create(dossier.filePath(QStringLiteral("velm2000.dat")), corpusSchema());
        ASSERT_NE(base.database, nullptr);
        TableWriter table(*base.database, QStringLiteral("données"),
                          {QStringLiteral("référence"), QStringLiteral("numart"), QStringLiteral("titre"),
                           QStringLiteral("BackColor"), QStringLiteral("contenu")});
        for (const DocumentEssai& d : documents()) {
            const Cle cle = decoupecle(d.cle);
            ASSERT_TRUE(table.add({cle.code, cle.numero, d.titre, d.couleur, d.contenu}));
        }
    }

    /// A store of dossiers as it is delivered.
    void ecritdossiers() const {
        const auto base = Database::create(dossier.filePath(QStringLiteral("dossiers.dat")), dossiersSchema());
        ASSERT_NE(base.database, nullptr);
        TableWriter parametres(*base.database, QStringLiteral("paramètres"), {QStringLiteral("dernoarborescence")});
        ASSERT_TRUE(parametres.add({0}) && parametres.finish());
    }

    OptionsProgramme optionsprogramme(const QString& ligne) const {
        OptionsProgramme options;
        options.dossierprogramme = dossier.path();
        options.fichierprogramme = dossier.filePath(QStringLiteral("velm2000"));
        options.lignedecommande = ligne;
        options.fichierreglages = dossier.filePath(QStringLiteral("reglages.ini"));
        options.dossierinstance = dossier.path();
        options.dossierdonnees = dossier.filePath(QStringLiteral("donnees"));
        options.patience = patience;
        return options;
    }
    /// Starts the program with a command line.
    Demarrage demarre(const QString& ligne) {
        programme = std::make_unique<Programme>(
            optionsprogramme(ligne),
            MondeExterieur{dialogues, navigateur, processus, sablier, pressepapiers, courrier, imprimante, lecteurs});
        return programme->demarre();
    }

    void regle(QStringView section, QStringView cle, const QString& valeur) const {
        ReglagesStore(dossier.filePath(QStringLiteral("reglages.ini"))).save(section, cle, valeur);
    }
    QString reglage(const char* section, const char* cle) const {
        return ReglagesStore(dossier.filePath(QStringLiteral("reglages.ini")))
            .get(QString::fromUtf8(section), QString::fromUtf8(cle), QStringLiteral("(absent)"));
    }

    /// A text of the French language file, with what stands for its %1, %2…
    static QString mots(int numero, const QStringList& parties = {}) {
        Langue langue([](const QString& absent) { ADD_FAILURE() << "no text " << absent.toStdString(); });
        langue.choisitfichier(QStringLiteral(VELM_SOURCE_DIR), QStringLiteral(VELM_SOURCE_DIR), QStringLiteral("FR"));
        return remplace(langue.lireressource(Texte{numero}), parties);
    }
    static QString questiondefin() { return mots(400); }

    /// Clicks on a character of a window's text.
    static void clique(Textes& fenetre, qsizetype position) {
        RichTextBox& vue = fenetre.vue();
        vue.setSelStart(position);
        vue.revealCaret();
        const QRect ici = vue.cursorRect();
        QTest::mouseClick(vue.viewport(), Qt::LeftButton, {}, ici.center() + QPoint(2, 0));
    }

    std::chrono::milliseconds patience{400}; ///< after which a start shows how far it is
    QTemporaryDir dossier;
    DialoguesScript dialogues;
    NavigateurScript navigateur;
    ProcessusScript processus;
    SablierMuet sablier;
    PressePapiersScript pressepapiers;
    CourrierScript courrier;
    ImprimanteScript imprimante;
    LecteursScript lecteurs;
    std::unique_ptr<Programme> programme;
};

} // namespace velm::test
