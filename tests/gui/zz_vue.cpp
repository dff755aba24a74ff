#include "tests/gui/textes_support.h"
#include "platform/widgets/look.h"
#include "document/ui/listedeliens.h"
#include "document/ui/frmproperties.h"
#include <QApplication>
#include <QMenu>
#include <QElapsedTimer>
#include <QLineEdit>
using namespace velm;
static void sauve(QWidget& w, const char* nom) {
    QCoreApplication::processEvents();
    QTest::qWait(60);
    w.grab().save(QStringLiteral("/tmp/vt_%1.png").arg(QString::fromLatin1(nom)));
}
TEST(ZZVue, DISABLED_Tout) {
    look::apply(*qApp, qEnvironmentVariableIsSet("SOMBRE") ? look::Theme::Dark : look::Theme::Light);
    const QByteArray p = qgetenv("PREFIXE");
    auto nom = [&](const char* n) { return p + n; };
    test::BancTextes banc(QStringLiteral("/tmp/velm-corpus/velm2000.dat"));
    banc.taille = QSize(1100, 760);
    { QElapsedTimer t; t.start(); Textes& f = banc.ouvre("CO000001"); sauve(f, nom("defaut").constData());
      qDebug("open %lld", t.elapsed()); }
    Textes& f = *banc.fenetre(0);
    auto clic = [&](const char* k) { QElapsedTimer t; t.start(); f.barrechild().widget(QString::fromUtf8(k))->click(); f.repaint(); qDebug("%s %lld ms", k, t.elapsed()); };
    clic("arbre"); sauve(f, nom("arbre_haut").constData());
    clic("barrehoriz"); sauve(f, nom("arbre_gauche").constData());
    clic("tableau"); sauve(f, nom("liste_gauche").constData());
    clic("recherchedico"); sauve(f, nom("mots_gauche").constData());
    clic("arbre");
    f.liens().bouton()->click(); f.correlats().bouton()->click(); sauve(f, nom("listes").constData());
    f.resize(420, 420); sauve(f, nom("etroite").constData());
    f.resize(1100, 760); f.liens().bouton()->click(); sauve(f, nom("une_liste").constData());
    clic("propriétés");
    for (QWidget* w : QApplication::topLevelWidgets()) if (auto* d = qobject_cast<frmproperties*>(w)) { sauve(*d, nom("proprietes").constData()); d->close(); }
    banc.met(QStringLiteral("WINDOWSSEPARVH3"), QStringLiteral("0"));
    banc.met(QStringLiteral("WINDOWSSEPAR3"), QStringLiteral("6000"));
    Textes& cl = banc.ouvre("CL000010");
    auto clicl = [&](const char* k) { QElapsedTimer t; t.start(); cl.barrechild().widget(QString::fromUtf8(k))->click(); cl.repaint(); qDebug("%s %lld ms", k, t.elapsed()); };
    clicl("arbre"); sauve(cl, nom("cl_arbre").constData());
    clicl("tableau"); sauve(cl, nom("cl_liste").constData());
    const auto gls = {"GL000001"};
    for (auto g : gls) { Textes& gl = banc.ouvre(g); gl.barrechild().widget(QStringLiteral("tableau"))->click(); gl.liens().bouton()->click(); sauve(gl, nom("gl").constData()); }
    f.resize(1100, 760);
    auto* m = f.findChild<QMenu*>(QStringLiteral("ContextMenu"));
    m->popup(QPoint(100,100)); sauve(*m, nom("menu").constData()); m->close();
}
