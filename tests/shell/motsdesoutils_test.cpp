#include "shell/motsdesoutils.h"

#include <QCoreApplication>
#include <QFileIconProvider>
#include <QFileInfo>
#include <QKeySequence>

#include <gtest/gtest.h>

using namespace velm;
using namespace Qt::Literals::StringLiterals;

namespace {

QString touche() {
    return QKeySequence(Qt::ALT | Qt::Key_Return).toString(QKeySequence::NativeText);
}

} // namespace

TEST(MotsDesOutils, AKeyIsNamedAsOnTheKeyboardForAsLongAsTheyAreThere) {
    const QString avant = touche();
    {
        const MotsDesOutils mots(u"FR"_s, [](Texte lequel) {
            EXPECT_EQ(lequel, Texte::ToucheEntree);
            return u"Entrée"_s;
        });
        EXPECT_TRUE(touche().endsWith(u"+Entrée")) << touche().toStdString();
    }
    EXPECT_EQ(touche(), avant);
}

TEST(MotsDesOutils, AFolderIsToldFromAFileInTheDialogs) {
    const MotsDesOutils mots(u"FR"_s, [](Texte lequel) {
        EXPECT_EQ(lequel, Texte::SorteDossier);
        return u"Dossier"_s;
    });
    EXPECT_EQ(QFileIconProvider().type(QFileInfo(QCoreApplication::applicationDirPath())), u"Dossier");
}

TEST(MotsDesOutils, TheSameWordInAnotherPlaceIsNotTheirs) {
    const MotsDesOutils mots(u"FR"_s, [](Texte) { return u"Entrée"_s; });
    EXPECT_EQ(QCoreApplication::translate("QShortcut", "Return"), u"Entrée");
    EXPECT_NE(QCoreApplication::translate("QPlatformTheme", "Return"), u"Entrée");
    EXPECT_NE(QCoreApplication::translate("QShortcut", "Folder"), u"Entrée");
}

TEST(MotsDesOutils, AllElseTheToolkitSaysInTheLanguage) {
    const MotsDesOutils mots(u"FR"_s, [](Texte) { return QString(); });
    const QString annuler = QCoreApplication::translate("QPlatformTheme", "Cancel");
    EXPECT_EQ(annuler, u"Annuler");
    EXPECT_EQ(QCoreApplication::translate("QPlatformTheme", "no such words"), u"no such words");
}

TEST(MotsDesOutils, ALanguageThatTheToolkitLacksLeavesItsOwnWords) {
    const MotsDesOutils mots(u"XX"_s, [](Texte) { return u"Entrée"_s; });
    EXPECT_EQ(QCoreApplication::translate("QPlatformTheme", "Cancel"), u"Cancel");
    EXPECT_TRUE(touche().endsWith(u"+Entrée"));
}
