#pragma once
// A run whose windows are a journal: every request of the sequences is written down in order.
#include "core/cle.h"
#include "core/schemas.h"
#include "platform/engine/recordset.h"
#include "platform/system/files.h"
#include "platform/text/ansi.h"
#include "shell/logique/finseance.h"
#include "tests/support/dialogues_script.h"

#include <QDir>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace velm::test {

class EcransJournal final : public Accueil, public Cadre, public Dossiers, public Travaux {
public:
    void afficheetape(const QString& texte) override { note(QStringLiteral("étape ") + texte); }
    void montreaccueil() override { note(QStringLiteral("accueil")); }
    void fermeaccueil() override { note(QStringLiteral("ferme accueil")); }
    void litstyles() { note(QStringLiteral("styles")); }
    void effacereconstructions() override { note(QStringLiteral("efface")); }
    bool connexion() {
        note(QStringLiteral("connexion"));
        return surconnexion ? surconnexion() : false;
    }
    void ouvredossiers() override { note(QStringLiteral("dossiers")); }
    void fermedossiers() override {
        note(QStringLiteral("ferme dossiers"));
        if (surfermedossiers)
            surfermedossiers();
    }
    QString chargeprincipale() override {
        note(QStringLiteral("charge"));
        if (surcharge)
            surcharge();
        return QStringLiteral("4242");
    }
    void montreprincipale() override { note(QStringLiteral("montre")); }
    void ouvre(const Cle& cle) override { note(QStringLiteral("navigue TA") + cle.texte()); }
    void ouvrefichierdossier(const QString& chemin) override { note(QStringLiteral("dv2 ") + chemin); }
    void ouvrefichiercriteres(const QString& chemin) override { note(QStringLiteral("cv2 ") + chemin); }
    void astuce(bool attend) override { note(attend ? QStringLiteral("astuce plus tard") : QStringLiteral("astuce")); }
    bool impressionouverte() const override { return impression; }
    void termineimpression() override { note(QStringLiteral("termine")); }
    void abandonneimpression() override {
        note(QStringLiteral("abandonne"));
        if (surabandon)
            surabandon();
    }
    EtatFenetres etatfenetres() const override { return etat; }
    void sauvederniers() override { note(QStringLiteral("derniers")); }
    void notefenetres() override { note(QStringLiteral("note fenêtres")); }
    void fermefenetres() override {
        note(QStringLiteral("ferme fenêtres"));
        if (surfermefenetres)
            surfermefenetres();
    }
    void fermeprincipale() override { note(QStringLiteral("ferme principale")); }

    Ecrans ecrans() {
        return {*this, *this, *this, *this, [this] { litstyles(); }, [this] { return connexion(); }};
    }

    bool a(const QString& ligne) const { return journal.contains(ligne); }
    QStringList parmi(const QString& debut) const { return journal.filter(QRegularExpression(u'^' + debut)); }
    void note(const QString& ligne) { journal.append(ligne); }

    QStringList journal;
    std::function<bool()> surconnexion;
    std::function<void()> surcharge;
    std::function<void()> surabandon;
    std::function<void()> surfermedossiers;
    std::function<void()> surfermefenetres;
    bool impression = false;
    EtatFenetres etat;
};

class SeanceTest : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(dossier_.isValid());
        ASSERT_TRUE(QDir(dossier_.path()).mkpath(QStringLiteral("langues")));
        ASSERT_TRUE(QFile::copy(QStringLiteral(VELM_SOURCE_DIR "/langues/RES2000.FR"), chemin("langues/RES2000.FR")));
        ASSERT_NE(Database::create(chemin("velm2000.dat"), corpusSchema()).database, nullptr);
        env.dossierprogramme = dossier_.path();
        env.fichierprogramme = chemin("velm2000");
        env.nomprogramme = QStringLiteral("velm2000");
        env.autreinstance = [this] { return autre; };
        env.remonteinstance = [this](const QString& handle) { remontes.append(handle); };
        env.lance = [this](const QString& programme, const QString& argument) {
            lances.append(programme + u'|' + argument);
            return true;
        };
        env.enregistreextensions = [this](const QString& a, const QString& e) { extensions.append(a + u'|' + e); };
    }

    QString chemin(const char* nom) const { return dossier_.filePath(QString::fromUtf8(nom)); }

    void stocke(const char* section, const char* cle, const QString& valeur) {
        ASSERT_TRUE(reglages.savesetting(QString::fromUtf8(section), QString::fromUtf8(cle), valeur));
    }
    QString lu(const char* section, const char* cle) const {
        return reglages.getsetting(QString::fromUtf8(section), QString::fromUtf8(cle), QStringLiteral("(absent)"));
    }

    void ecrit(const char* nom, const QDateTime& date) const {
        QFile fichier(chemin(nom));
        ASSERT_TRUE(fichier.open(QIODevice::ReadWrite));
        fichier.write("x");
        fichier.flush();
        ASSERT_TRUE(fichier.setFileTime(date, QFileDevice::FileModificationTime));
    }

    Seance& seance() {
        if (!seance_)
            seance_.emplace(env, reglages, langue, corpus, dialogues, ecrans.ecrans());
        return *seance_;
    }
    FinSeance& fin() {
        if (!fin_)
            fin_.emplace(seance(), reglages, langue, corpus, dialogues, ecrans.ecrans());
        return *fin_;
    }
    /// The run is over; the next one begins.
    void oublie() {
        fin_.reset();
        seance_.reset();
    }

    QTemporaryDir dossier_;
    ReglagesStore magasin{dossier_.filePath(QStringLiteral("reglages.ini"))};
    Reglages reglages{magasin};
    QStringList numeros;
    Langue langue{[this](const QString& n) { numeros.append(n); }};
    Corpus corpus;
    DialoguesScript dialogues;
    EcransJournal ecrans;
    Environnement env;
    bool autre = false;
    QStringList remontes;
    QStringList lances;
    QStringList extensions;
    std::optional<Seance> seance_;
    std::optional<FinSeance> fin_;
};

} // namespace velm::test
