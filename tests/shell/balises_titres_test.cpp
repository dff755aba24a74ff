// A base whose every field looks like markup: in no window and no menu of the program is it taken for that.
#include "core/schemas.h"
#include "document/ui/frmproperties.h"
#include "document/ui/listedeliens.h"
#include "document/ui/textelu.h"
#include "platform/system/ui/qtdialogues.h"
#include "platform/widgets/frame/childarea.h"
#include "platform/widgets/grid/flexgrid.h"
#include "platform/widgets/tree/treeview.h"
#include "search/ui/frmvelmorselect.h"
#include "shell/bureau.h"
#include "shell/fenetresannexes.h"
#include "shell/recherches.h"
#include "shell/selection.h"
#include "shell/volet.h"
#include "tests/shell/ecran_support.h"
#include "tests/support/when_shown.h"

#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QHeaderView>
#include <QHelpEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QTextDocument>
#include <QTextDocumentFragment>
#include <QToolButton>
#include <QToolTip>

using namespace velm;
using namespace velm::test;
using namespace Qt::Literals::StringLiterals;

namespace {

/// A field that would have a picture fetched.
QString piege(const QString& quoi) {
    return u"<img src=\"/absente.png\"> "_s + quoi;
}
/// The same, longer than any place for it.
QString longpiege(const QString& quoi) {
    return piege(quoi + u" qui ne tient dans aucune case, aucun menu, aucune barre"_s.repeated(6));
}

/// Looks at everything that the toolkit might take for markup, in all windows that there are.
class Regard {
public:
    void regarde() {
        for (QWidget* widget : QApplication::allWidgets())
            voit(*widget);
    }
    QStringList prises; ///< texts that were taken for markup, with the place
    int pieges = 0;     ///< how many of the texts were traps at all
    QSet<QString> ou;   ///< kinds of places where traps were met

private:
    void voit(QWidget& widget) {
        const QString nom = QString::fromUtf8(widget.metaObject()->className()) + u' ' + widget.objectName();
        for (const QString& texte : {widget.toolTip(), widget.statusTip(), widget.whatsThis()})
            juge(texte, nom);
        for (const QAction* action : widget.actions()) {
            for (const QString& texte : {action->toolTip(), action->statusTip(), action->whatsThis()})
                juge(texte, u"action "_s + nom);
        }
        if (const auto* label = qobject_cast<QLabel*>(&widget); label && label->textFormat() != Qt::PlainText)
            juge(label->text(), u"label "_s + nom);
        if (const auto* boite = qobject_cast<QComboBox*>(&widget))
            modele(*boite->model(), {}, nom);
        if (const auto* vue = qobject_cast<QAbstractItemView*>(&widget); vue && vue->model())
            modele(*vue->model(), vue->rootIndex(), nom);
        if (widget.isVisible())
            survole(widget, nom);
    }
    void modele(const QAbstractItemModel& modeldevue, const QModelIndex& sous, const QString& nom) {
        const int lignes = std::min(modeldevue.rowCount(sous), 20);
        for (int ligne = 0; ligne < lignes; ++ligne) {
            for (int colonne = 0; colonne < modeldevue.columnCount(sous); ++colonne) {
                const QModelIndex index = modeldevue.index(ligne, colonne, sous);
                for (const int role : {Qt::ToolTipRole, Qt::StatusTipRole, Qt::WhatsThisRole})
                    juge(index.data(role).toString(), u"modèle "_s + nom);
                if (colonne == 0)
                    modele(modeldevue, index, nom);
            }
        }
    }
    /// Rests the pointer on a widget, here and there.
    void survole(QWidget& widget, const QString& nom) {
        constexpr int pas = 24;
        for (int y = 4; y < std::min(widget.height(), 12 * pas); y += pas) {
            for (int x = 4; x < widget.width(); x += 5 * pas) {
                QToolTip::showText({}, QString());
                QHelpEvent repos(QEvent::ToolTip, {x, y}, widget.mapToGlobal(QPoint(x, y)));
                QApplication::sendEvent(&widget, &repos);
                if (QToolTip::isVisible())
                    juge(QToolTip::text(), u"survol "_s + nom);
            }
        }
    }
    void juge(const QString& texte, const QString& nom) {
        const bool piege = texte.contains(u"absente.png"_s);
        pieges += piege ? 1 : 0;
        if (piege)
            ou << nom.section(u' ', 0, 1);
        if (!Qt::mightBeRichText(texte))
            return;
        const QString lu = QTextDocumentFragment::fromHtml(texte).toPlainText();
        if (lu.contains(QChar::ObjectReplacementCharacter) || (piege && !lu.contains(u"<img src="_s)))
            prises << nom + u": "_s + texte;
    }
};

class BalisesTest : public EcranTest {
protected:
    void SetUp() override {
        EcranTest::SetUp();
        const QString chemin = dossier.filePath(u"velm2000.dat"_s);
        ASSERT_TRUE(QFile::remove(chemin));
        const auto base = Database::create(chemin, corpusSchema());
        ASSERT_NE(base.database, nullptr);
        ecritdocuments(*base.database);
        ecritautour(*base.database);
        regle(u"RECHERCHE", u"TEXTERAPIDE1", piege(u"cherché"_s));
    }

    static void ecritdocuments(Database& base) {
        TableWriter table(base, u"données"_s,
                          {u"référence"_s, u"numart"_s, u"titre"_s, u"motclé1"_s, u"motclé2"_s, u"motclé3"_s,
                           u"Source"_s, u"typededocument"_s, u"datecreation"_s, u"datemodif"_s, u"numeroarborescence"_s,
                           u"contenu"_s});
        for (const QString& code : {u"CO"_s, u"EU"_s, u"JP"_s}) {
            for (int numero = 1; numero <= 4; ++numero) {
                const QString quoi = code + QString::number(numero);
                const bool longue = numero % 2 == 0;
                ASSERT_TRUE(table.add({code, sixchiffres(numero), longue ? longpiege(quoi) : piege(quoi),
                                       piege(u"vente"_s), longpiege(u"prix"_s), piege(u"délai"_s), piege(u"source"_s),
                                       piege(u"type"_s), piege(u"création"_s), piege(u"modif"_s), 1,
                                       QByteArray("{\\rtf1\\ansi Voir \\{L=le document|CO000002\\} et "
                                                  "\\{U=ici|<img src=\"/absente.png\">\\} mot.}")}));
            }
        }
    }
    static void ecritautour(Database& base) {
        TableWriter arbre(
            base, u"arborescences"_s,
            {u"numerodutype"_s, u"dépendance"_s, u"référence"_s, u"ordre"_s, u"typededonnées"_s, u"nbarticles"_s});
        ASSERT_TRUE(arbre.add({1, 0, u"CO"_s, 1, longpiege(u"Livre"_s), 4}));
        TableWriter liens(base, u"liens"_s,
                          {u"référencedépart"_s, u"numartdépart"_s, u"référencearrivée"_s, u"numartarrivée"_s});
        ASSERT_TRUE(liens.add({u"CO"_s, u"000001"_s, u"CO"_s, u"000002"_s}));
        ASSERT_TRUE(liens.add({u"EU"_s, u"000002"_s, u"CO"_s, u"000001"_s}));
        TableWriter mots(base, u"motclés"_s, {u"motcle"_s});
        ASSERT_TRUE(mots.add({piege(u"mot clé"_s)}));
        TableWriter types(base, u"typedocument"_s, {u"typedocument"_s, u"numerodutype"_s, u"ordre"_s});
        ASSERT_TRUE(types.add({piege(u"type"_s), 1, 1}));
    }

    void regarde(const char* quoi) {
        QCoreApplication::processEvents();
        regard.regarde();
        EXPECT_EQ(regard.prises, QStringList()) << quoi;
        regard.prises.clear();
    }
    /// Fills all menus as a click on them would.
    void ouvremenus() {
        for (QMenu* menu : ecran().findChildren<QMenu*>())
            emit menu->aboutToShow();
    }

    Regard regard;
};

} // namespace

TEST_F(BalisesTest, NoWindowAndNoMenuTakesAFieldForMarkup) {
    ASSERT_EQ(demarre(u"CO1"_s), Demarrage::EnMarche);
    ecran().resize(1200, 900);
    for (const char* cle : {"CO000001", "CO000002", "EU000002", "JP000003", "CO000003", "CO000001"})
        programme->ouvre(decoupecle(QString::fromLatin1(cle)));
    Textes& fenetre = *programme->fenetre(0);

    for (const QString& bloc : {u"arbre"_s, u"tableau"_s, u"recherchedico"_s}) {
        fenetre.barrechild().widget(bloc)->click();
        ouvremenus();
        regarde("blocks of a document window");
    }
    fenetre.findChild<QToolButton*>(u"ouvrirlien"_s)->click();
    fenetre.findChild<QToolButton*>(u"ouvrircorrélats"_s)->click();
    regarde("lists of links");

    emit fenetre.cible(longpiege(u"cible"_s));
    programme->selection().controle().remplissage().remplitdecles(
        {u"CO000001"_s, u"CO000002"_s, u"EU000002"_s, u"JP000003"_s});
    regarde("selection list");

    programme->recherches().montre(true);
    auto* onglets = programme->recherches().formulaire()->findChild<QTabWidget*>(u"ongletrecherche"_s);
    for (int onglet = 0; onglet < onglets->count(); ++onglet) {
        onglets->setCurrentIndex(onglet);
        regarde("search form");
    }

    fenetre.barrechild().widget(u"propriétés"_s)->click();
    auto* proprietes = ecran().findChild<frmproperties*>();
    ASSERT_NE(proprietes, nullptr);
    regarde("properties");
    const auto* titre = proprietes->findChild<TexteLu*>(u"Titre"_s);
    EXPECT_TRUE(titre->text().contains(u"absente.png"_s)) << "the trap is there";
    EXPECT_EQ(titre->textFormat(), Qt::PlainText);
    proprietes->close();

    programme->cadre().annexes().montrerecherche();
    programme->cadre().annexes().montreapropos();
    programme->cadre().astuce(false);
    regarde("small windows");

    // The places where the traps were met: what looks at nothing proves nothing.
    EXPECT_GT(regard.pieges, 100);
    const QStringList lieux = regard.ou.values();
    for (const char* lieu : {"action", "survol"}) {
        EXPECT_TRUE(std::any_of(lieux.begin(), lieux.end(), [lieu](const QString& celui) {
            return celui.startsWith(QString::fromLatin1(lieu));
        })) << lieu;
    }
}

TEST_F(BalisesTest, NoBoxTakesATextForMarkup) {
    QtDialogues boites;
    QStringList prises;
    const auto boite = whenShown<QMessageBox>([&prises](QMessageBox& celle) {
        for (const QLabel* label : celle.findChildren<QLabel*>()) {
            if (label->textFormat() != Qt::PlainText && Qt::mightBeRichText(label->text()))
                prises << label->text();
        }
        EXPECT_EQ(celle.text(), piege(u"texte"_s));
        celle.accept();
    });
    boites.message(piege(u"texte"_s), piege(u"titre"_s), Icone::Exclamation);
    EXPECT_EQ(prises, QStringList());
}
