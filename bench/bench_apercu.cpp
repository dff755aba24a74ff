// From the command to the first sheet of the preview on the screen, of a short document and of one of a megabyte, whose
// other sheets follow.
#include "bench/programmedessai.h"
#include "core/schemas.h"
#include "platform/engine/recordset.h"
#include "platform/widgets/paper/sheetsview.h"
#include "print/ui/frmapercu.h"
#include "shell/bureau.h"
#include "shell/impressions.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QEvent>

#include <benchmark/benchmark.h>

namespace {

using namespace velm;

QByteArray corps(qsizetype caracteres) {
    QByteArray rtf = "{\\rtf1\\ansi\\deff0{\\fonttbl{\\f0 Liberation Serif;}}\\f0\\fs22 ";
    for (int numero = 1; rtf.size() < caracteres; ++numero)
        rtf += "{\\b Article " + QByteArray::number(numero) +
               "}\\par Le professionnel informe le consommateur, de mani\\'e8re lisible et compr\\'e9hensible, du prix "
               "du bien ou du service, ainsi que de toute limitation de responsabilit\\'e9.\\par ";
    return rtf + '}';
}

bool posebase(const QString& chemin) {
    const auto base = Database::create(chemin, corpusSchema());
    if (!base.database)
        return false;
    TableWriter table(*base.database, QStringLiteral("données"),
                      {QStringLiteral("référence"), QStringLiteral("numart"), QStringLiteral("titre"),
                       QStringLiteral("BackColor"), QStringLiteral("contenu")});
    return table.add(
               {QStringLiteral("CO"), QStringLiteral("000001"), QStringLiteral("Court"), 0xFFFFFF, corps(5'000)}) &&
           table.add(
               {QStringLiteral("CO"), QStringLiteral("000002"), QStringLiteral("Long"), 0xFFFFFF, corps(1'000'000)}) &&
           table.finish();
}

/// Notes when the first sheet is painted, and closes the preview then.
class Regard final : public QObject {
public:
    explicit Regard(Impressions& impressions) : impressions_(impressions) { qApp->installEventFilter(this); }
    double secondes = 0;
    QElapsedTimer depuis;

private:
    bool eventFilter(QObject* objet, QEvent* evenement) override {
        FrmApercu* const fenetre = impressions_.fenetreapercu();
        if (vu_ || !fenetre || objet != fenetre->vue().viewport() || evenement->type() != QEvent::Paint ||
            fenetre->vue().count() == 0)
            return false;
        vu_ = true;
        objet->event(evenement);
        secondes = double(depuis.nsecsElapsed()) / 1e9;
        QMetaObject::invokeMethod(fenetre, &QDialog::reject, Qt::QueuedConnection);
        return true;
    }
    Impressions& impressions_;
    bool vu_ = false;
};

void premierefeuille(benchmark::State& etat) {
    bench::ProgrammeDessai essai(posebase);
    if (!essai.demarre()) {
        etat.SkipWithError("the program does not start");
        return;
    }
    Programme& programme = essai.programme();
    programme.ouvre(decoupecle(QStringLiteral("CO%1").arg(etat.range(0), 6, 10, QLatin1Char('0'))));
    bench::ProgrammeDessai::peint();
    for ([[maybe_unused]] const auto& tour : etat) {
        Regard regard(programme.impressions());
        regard.depuis.start();
        programme.impressions().apercu();
        bench::ProgrammeDessai::peint();
        bench::ProgrammeDessai::oublie();
        etat.SetIterationTime(regard.secondes);
    }
    programme.termine();
}

} // namespace

BENCHMARK(premierefeuille)->Name("Preview/first sheet")->Arg(1)->Arg(2)->UseManualTime()->Unit(benchmark::kMillisecond);

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
