#pragma once
// The base of the window tests: two collections with a tree, links both ways, keywords.
#include "core/schemas.h"
#include "tests/document/ui/textes_support.h"

#include <QHeaderView>
#include <QTableView>

#include <memory>

namespace velm::test {

class BaseTextes : public testing::Test {
protected:
    void SetUp() override {
        using namespace Qt::Literals::StringLiterals;
        ASSERT_TRUE(dossier.isValid());
        {
            const auto base = Database::create(chemin(), corpusSchema());
            ASSERT_NE(base.database, nullptr);
            ecrit(
                *base.database, u"données",
                {u"référence", u"numart", u"titre", u"motclé1", u"motclé2", u"motclé3", u"Source",
                 u"numeroarborescence", u"typededocument", u"contenu"},
                {{u"CO"_s, u"000001"_s, u"Article premier"_s, u"vente"_s, u"prix"_s, u""_s, u"JO"_s, 3, u"Article"_s,
                  corps(1)},
                 {u"CO"_s, u"000002"_s, u"Article 2"_s, u"vente"_s, u"délai"_s, u""_s, u""_s, 3, u""_s, corps(2)},
                 {u"CO"_s, u"000003"_s, u"Zone franche"_s, u"bail"_s, u"loyer"_s, u""_s, u""_s, 2, u"Loi"_s, corps(3)},
                 {u"CO"_s, u"000004"_s, u"Être lié"_s, u"bail"_s, u"prix"_s, u""_s, u""_s, 0, u""_s, corps(4)},
                 {u"JP"_s, u"000007"_s, u"Un arrêt"_s, u""_s, u""_s, u""_s, u""_s, 0, u""_s, corps(7)}});
            ecrit(*base.database, u"arborescences",
                  {u"numerodutype", u"dépendance", u"référence", u"ordre", u"typededonnées", u"nbarticles"},
                  {{1, 0, u"CO"_s, 1, u"Livre I"_s, 0},
                   {2, 0, u"CO"_s, 2, u"Livre II"_s, 1},
                   {3, 1, u"CO"_s, 1, u"Chapitre 1"_s, 2},
                   {4, 3, u"CO"_s, 1, u"Section 1"_s, 0},
                   {5, 4, u"CO"_s, 1, u"Paragraphe 1"_s, 0}});
            ecrit(*base.database, u"liens",
                  {u"référencedépart", u"numartdépart", u"référencearrivée", u"numartarrivée"},
                  {{u"CO"_s, u"000001"_s, u"CO"_s, u"000003"_s},
                   {u"CO"_s, u"000001"_s, u"JP"_s, u"000099"_s},
                   {u"CO"_s, u"000001"_s, u"CO"_s, u"000002"_s},
                   {u"CO"_s, u"000001"_s, u"CO"_s, u"000003"_s},
                   {u"CO"_s, u"000002"_s, u"CO"_s, u"000001"_s},
                   {u"JP"_s, u"000007"_s, u"CO"_s, u"000001"_s}});
            ecrit(*base.database, u"typedocument", {u"typedocument", u"numerodutype", u"ordre"},
                  {{u"Loi organique"_s, 1, 1}, {u"Article"_s, 2, 2}});
        }
        banc = std::make_unique<BancTextes>(chemin());
    }
    void TearDown() override { banc.reset(); }

    QString chemin() const { return dossier.filePath(QStringLiteral("velm2000.dat")); }

    static void ecrit(Database& base, QStringView table, const QList<QStringView>& champs,
                      const QList<QVariantList>& lignes) {
        std::vector<QString> noms;
        for (const QStringView champ : champs)
            noms.push_back(champ.toString());
        TableWriter ecrivain(base, table.toString(), noms);
        for (const QVariantList& ligne : lignes)
            ASSERT_TRUE(ecrivain.add({ligne.begin(), ligne.end()}));
    }

    /// Document 1 links to CO000002, to the web and to a mail address; the others are long enough to scroll.
    static QByteArray corps(int numero) {
        if (numero == 1)
            return "{\\rtf1\\ansi Voir \\{L=l'article 2|CO000002\\} et \\{U=le site|https://example.org\\} ou "
                   "\\{E=nous|a@example.org\\} puis \\{L=ailleurs|CO000099\\} et \\{L=Ligne 40|CO000002\\}.\\par "
                   "\\{S=Commentaire\\}Une note.\\{-S\\}\\par}";
        QByteArray texte = "{\\rtf1\\ansi Texte " + QByteArray::number(numero) + ".\\par ";
        for (int ligne = 0; ligne < 80; ++ligne)
            texte += "Ligne " + QByteArray::number(ligne) + ".\\par ";
        return texte + '}';
    }

    Textes& ouvre(const char* cle, bool replier = false) { return banc->ouvre(cle, replier); }
    static QToolButton* bouton(Textes& fenetre, const QString& cle) { return fenetre.barrechild().widget(cle); }
    static void presse(Textes& fenetre, const QString& cle) { QTest::mouseClick(bouton(fenetre, cle), Qt::LeftButton); }
    template <typename T = QWidget>
    static T* controle(Textes& fenetre, const QString& nom) {
        return fenetre.findChild<T*>(nom);
    }
    /// Clicks on a character of the text.
    static void cliquetexte(Textes& fenetre, qsizetype position) {
        RichTextBox& vue = fenetre.vue();
        vue.setSelStart(position);
        vue.revealCaret();
        QTest::mouseClick(vue.viewport(), Qt::LeftButton, {}, vue.cursorRect().center() + QPoint(1, 0));
    }
    /// The middle of a cell in the grid's inner view; row 0 is the header, which is another widget.
    static void cliquecellule(const FlexGrid& grille, int ligne, int colonne, bool deuxfois = false) {
        QTableView* vue = grille.view();
        QWidget* surface = vue->viewport();
        QPoint ou;
        if (ligne == 0) {
            const QHeaderView* entete = vue->horizontalHeader();
            surface = entete->viewport();
            ou = {entete->sectionViewportPosition(colonne) + entete->sectionSize(colonne) / 2, entete->height() / 2};
        } else {
            ou = vue->visualRect(vue->model()->index(ligne - 1, colonne)).center();
        }
        QTest::mouseClick(surface, Qt::LeftButton, {}, ou);
        if (deuxfois)
            QTest::mouseDClick(surface, Qt::LeftButton, {}, ou);
    }
    static void cliquenoeud(TreeView& arbre, const QString& cle) {
        const int noeud = arbre.nodes().indexOf(cle);
        ASSERT_NE(noeud, 0) << cle.toStdString();
        arbre.ensureVisible(noeud);
        QTest::mouseClick(arbre.viewport(), Qt::LeftButton, {}, arbre.visualRect(arbre.indexOf(noeud)).center());
    }
    static void tire(SplitterBar& barre, const QPoint& vers) {
        const QPoint prise = barre.rect().center();
        QTest::mousePress(&barre, Qt::LeftButton, {}, prise);
        QTest::mouseMove(&barre, prise + vers);
        QTest::mouseRelease(&barre, Qt::LeftButton, {}, prise + vers);
    }

    QTemporaryDir dossier;
    std::unique_ptr<BancTextes> banc;
};

} // namespace velm::test
