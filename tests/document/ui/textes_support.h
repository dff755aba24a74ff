#pragma once
// Document windows on a small base of their own, without the program around them.
#include "core/cle.h"
#include "document/ui/divisiontextes.h"
#include "document/ui/listedeliens.h"
#include "document/ui/panneautextes.h"
#include "document/ui/textes.h"
#include "document/ui/voletliens.h"
#include "platform/base/twips.h"
#include "platform/engine/recordset.h"
#include "platform/widgets/frame/splitterbar.h"
#include "platform/widgets/frame/toolbar.h"
#include "platform/widgets/grid/flexgrid.h"
#include "platform/widgets/text/richtextbox.h"
#include "platform/widgets/tree/treeview.h"
#include "tests/support/outside_script.h"
#include "tests/support/voisinage_script.h"

#include <QPointer>
#include <QScreen>
#include <QScrollBar>
#include <QTemporaryDir>
#include <QTest>
#include <QToolButton>

#include <gtest/gtest.h>

namespace velm::test {

class BancTextes : public HoteNavigation {
public:
    explicit BancTextes(const QString& chemin) {
        corpus.connecte(chemin);
        corpus.ouvretables();
        langue.choisitfichier(QStringLiteral(VELM_SOURCE_DIR), QStringLiteral(VELM_SOURCE_DIR), QStringLiteral("FR"));
        reglages.choisitmaitre(QStringLiteral(VELM_SOURCE_DIR "/master.ini"));
        parametres = litparametres(reglages, langue, QStringLiteral(VELM_SOURCE_DIR));
        styles = litstyles(reglages, langue, parametres.textes);
        // Windows that were open before: a first one shows the contents.
        for (int indice = 0; indice < nombredecollections; ++indice)
            met(QStringLiteral("WINDOWSARBRE%1").arg(indice), QStringLiteral("0"));
    }
    ~BancTextes() override {
        for (const auto& fenetre : fenetres)
            delete fenetre.data();
    }
    BancTextes(const BancTextes&) = delete;
    BancTextes& operator=(const BancTextes&) = delete;

    ContexteTextes contexte() {
        return {.lecture = {.corpus = corpus,
                            .navigation = navigation,
                            .styles = styles,
                            .sablier = sablier,
                            .navigateur = navigateur,
                            .texte = [this](Texte lequel) { return langue.lireressource(lequel); },
                            .libelle = [this](int indice) { return langue.lireressource(libelledefenetre(indice)); }},
                .reglages = reglages,
                .parametres = parametres,
                .pressepapiers = pressepapiers,
                .voisinage = voisinage,
                .mots = mots};
    }

    // ---- HoteNavigation
    FenetreNavigable* creefenetre(int indice) override {
        auto* nouvelle = new Textes(indice, contexte());
        fenetres.emplace_back(nouvelle);
        nouvelle->resize(taille);
        nouvelle->show();
        return nouvelle;
    }
    void montrefenetre(int indice, bool visible) override {
        if (Textes* celle = fenetre(indice))
            celle->setVisible(visible);
    }
    void slotchange(int indice, bool ouverte) override { slots_.push_back({indice, ouverte}); }
    void activehistorique(bool, bool) override {}
    void majderniersdocuments() override {}
    bool dossiersouverts() const override { return voisinage.dossiers; }

    Textes* fenetre(int indice) const { return dynamic_cast<Textes*>(navigation.fenetre(indice)); }
    /// Shows a document, and gives its window.
    Textes& ouvre(const char* cle, bool replier = false) {
        navigation.navigue(QStringLiteral("TA") + QString::fromLatin1(cle), replier);
        return *fenetre(indicedetype(QString::fromLatin1(cle, 2)));
    }
    void met(const QString& nom, const QString& valeur) { magasin.save(u"POSITIONFORME", nom, valeur); }
    /// Nothing is stored of any window.
    void oublietout() {
        QFile::remove(magasin.path());
        magasin.save(u"ESSAI", u"OUBLI", QString::number(++oublis)); // a write reads the file again
    }
    QString lu(const QString& nom) const { return magasin.get(u"POSITIONFORME", nom, QStringLiteral("(absent)")); }

    QTemporaryDir dossier;
    Corpus corpus;
    ReglagesStore magasin{dossier.filePath(QStringLiteral("reglages.ini"))};
    Reglages reglages{magasin};
    Langue langue{[](const QString& numero) { ADD_FAILURE() << "no text " << numero.toStdString(); }};
    Parametres parametres;
    TableStyles styles;
    SablierMuet sablier;
    NavigateurScript navigateur;
    PressePapiersScript pressepapiers;
    VoisinageScript voisinage;
    AideMotsScript mots;
    QSize taille{900, 700};
    int oublis = 0;
    std::vector<std::pair<int, bool>> slots_;
    std::vector<QPointer<Textes>> fenetres;
    Navigation navigation{*this, corpus};
};

} // namespace velm::test
