#pragma once
// What is read in a document window, without the window.
#include "core/schemas.h"
#include "document/lecture.h"
#include "document_support.h"
#include "fenetre_document.h"
#include "tests/support/outside_script.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <new>
#include <utility>

namespace velm::test {

inline constexpr int rose = 0x8000FF;

/// Writes down what the reading tells.
class VueEssai final : public VueLecture {
public:
    void changetitre(const QString& nouveau) override { titre = nouveau; }
    void activemenus() override { ++menus; }
    void rafraichit() override {
        if (std::exchange(sansmemoire, false))
            throw std::bad_alloc();
        ++peints;
    }
    void revele(qsizetype position) override { reveles << position; }
    void montreoccurrences(const std::vector<Occurrence>& nouvelles) override { occurrences = nouvelles; }
    void ditcible(const QString& texte) override { cibles << texte; }
    void dit(const QString& texte) override { dits << texte; }

    QString titre;
    int menus = 0;
    int peints = 0;
    bool sansmemoire = false; ///< the next painting finds no memory
    QList<qsizetype> reveles;
    std::vector<Occurrence> occurrences;
    QStringList cibles;
    QStringList dits;
};

class BarreEssai final : public BarreLecture, public BarreNavigable {
public:
    void montreabc(bool enfonce) override { abc = enfonce; }
    void montremarques(bool enfonce) override { marques = enfonce; }
    void montremots(bool visibles) override { mots = visibles; }
    void montreboutons(bool) override {}
    void activehistorique(bool, bool) override {}
    void activevoisin(bool, bool) override {}

    bool abc = false;
    bool marques = false;
    bool mots = false;
};

/// A frame with one window, in which all collections are read.
class LectureTest : public testing::Test, protected HoteNavigation, protected FenetreNavigable {
protected:
    void SetUp() override {
        ASSERT_TRUE(dossier.isValid());
        const QString chemin = dossier.filePath(u"velm2000.dat"_s);
        {
            const auto base = Database::create(chemin, corpusSchema());
            ASSERT_NE(base.database, nullptr);
            TableWriter documents(*base.database, u"données"_s,
                                  {u"référence"_s, u"numart"_s, u"titre"_s, u"contenu"_s});
            ASSERT_TRUE(documents.add(
                {u"CO"_s, u"000001"_s, u"Article premier"_s,
                 rtfde(u"Voir {L=l'article 2|CO000002} et {U=le site|https://example.org} ou {E=nous|a@example.org} "
                       "puis {L=ailleurs|CO000099}.\n{S=cachee}Une note.{-S}")}));
            QString lignes = u"Texte 2."_s;
            for (int ligne = 0; ligne < 20; ++ligne)
                lignes += u"\nLigne %1 l'article 2."_s.arg(ligne);
            ASSERT_TRUE(documents.add({u"CO"_s, u"000002"_s, u"Article 2"_s, rtfde(lignes)}));
        }
        ASSERT_EQ(corpus.connecte(chemin), OpenError::None);
        corpus.ouvretables();
    }

    // ---- HoteNavigation, FenetreNavigable
    FenetreNavigable* creefenetre(int) override { return this; }
    void montrefenetre(int, bool) override {}
    void slotchange(int, bool) override {}
    void activehistorique(bool, bool) override {}
    void majderniersdocuments() override {}
    bool dossiersouverts() const override { return false; }
    LectureNavigable& lecture() override { return lue; }
    BarreNavigable& barrechild() override { return barre; }
    void prendfocus() override {}

    Lecture& ouvre(const char* cle) {
        navigation.ouvre(decoupecle(QString::fromLatin1(cle)));
        return lue;
    }
    QString texte() const { return controle.text(); }
    qsizetype ou(const QString& mot) const { return texte().indexOf(mot); }
    int nombredemarques() const {
        int nombre = 0;
        const RichText& lu = controle.richText();
        lu.forEachRun(0, lu.length(), [&](qsizetype, qsizetype, FormatId format) {
            nombre += lu.charFormat(format).colour == rose ? 1 : 0;
        });
        return nombre;
    }

    QTemporaryDir dossier;
    Corpus corpus;
    TableStyles styles = stylesdessai();
    SablierMuet sablier;
    NavigateurScript navigateur;
    Navigation navigation{*this, corpus};
    RichTextControl controle;
    VueEssai vue;
    BarreEssai barre;
    ListeEssai liens;
    ListeEssai correlats;
    Lecture lue{{controle, vue, barre, liens, correlats},
                {corpus, navigation, styles, sablier, navigateur,
                 [](Texte lequel) { return QString::number(static_cast<int>(lequel)) + u" %1"_s; },
                 [](int indice) { return u"Collection %1"_s.arg(indice); }}};
    const Marquage marquage{rose, true, false, true};
};

} // namespace velm::test
