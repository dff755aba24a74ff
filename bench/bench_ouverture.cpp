// What a reader waits for: from the request for a document to its painted page. Seek, decode, the four passes, the
// styles and the view are all in it.
#include "core/cle.h"
#include "core/schemas.h"
#include "document/affichage.h"
#include "document/ui/textes.h"
#include "platform/engine/recordset.h"
#include "platform/system/settings.h"
#include "platform/system/ui/qtoutside.h"
#include "platform/widgets/text/richtextbox.h"
#include "tests/support/voisinage_script.h"

#include <QApplication>
#include <QImage>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

namespace {

using namespace velm;

constexpr int tailles[] = {5'000, 50'000, 1'000'000};

/// A law text of about so many characters: headings in sections, running text with links, here and there a list.
QByteArray corps(int caracteres) {
    QByteArray rtf = "{\\rtf1\\ansi\\ansicpg1252\\deff0{\\fonttbl{\\f0 Liberation Serif;}{\\f1 Liberation Sans;}}"
                     "{\\colortbl;\\red31\\green78\\blue121;}\\f0\\fs22\\sl324\\slmult1\\sa120 ";
    int ecrits = 0;
    for (int article = 1; ecrits < caracteres; ++article) {
        const QByteArray numero = QByteArray::number(article).rightJustified(6, '0');
        rtf += "\\{S=Article\\}{\\b\\cf1 Article " + numero + "}\\{-S\\}\\par ";
        for (int alinea = 0; alinea < 4; ++alinea) {
            rtf += "Le professionnel informe le consommateur, de mani\\'e8re lisible et compr\\'e9hensible, du prix du "
                   "bien "
                   "ou du service, en application de l'\\{L={\\cf1 article " +
                   numero + "}|CO" + numero +
                   "\\}, ainsi que de {\\i toute} limitation de responsabilit\\'e9. Le contrat conclu hors "
                   "\\'e9tablissement pr\\'e9cise les conditions, le d\\'e9lai et les modalit\\'e9s d'exercice de ce "
                   "droit.\\par ";
            ecrits += 330;
        }
    }
    return rtf + '}';
}

/// A frame without windows of its own.
struct HoteMuet final : HoteNavigation {
    FenetreNavigable* creefenetre(int) override { return nullptr; }
    void montrefenetre(int, bool) override {}
    void slotchange(int, bool) override {}
    void activehistorique(bool, bool) override {}
    void majderniersdocuments() override {}
    bool dossiersouverts() const override { return false; }
};

struct Lecteur {
    Lecteur() {
        const QString chemin = dossier.filePath(QStringLiteral("velm2000.dat"));
        {
            const auto base = Database::create(chemin, corpusSchema());
            TableWriter table(*base.database, QStringLiteral("données"),
                              {QStringLiteral("référence"), QStringLiteral("numart"), QStringLiteral("titre"),
                               QStringLiteral("BackColor"), QStringLiteral("contenu")});
            for (int rang = 0; rang < 3; ++rang)
                table.add({QStringLiteral("CO"), sixchiffres(rang + 1), QStringLiteral("Titre"), 0xFFFFFF,
                           corps(tailles[rang])});
        }
        corpus.connecte(chemin);
        corpus.ouvretables();
        reglages.choisitmaitre(QStringLiteral(VELM_SOURCE_DIR "/master.ini"));
        langue.choisitfichier(QStringLiteral(VELM_SOURCE_DIR), QStringLiteral(VELM_SOURCE_DIR), QStringLiteral("FR"));
        styles = litstyles(reglages, langue, littextesconstants(langue));
        const ContexteTextes contexte{
            .lecture = {.corpus = corpus,
                        .navigation = navigation,
                        .styles = styles,
                        .sablier = sablier,
                        .navigateur = navigateur,
                        .texte = [this](Texte lequel) { return langue.lireressource(lequel); },
                        .libelle = [](int) { return QStringLiteral("Code"); }},
            .reglages = reglages,
            .parametres = parametres,
            .pressepapiers = pressepapiers,
            .voisinage = voisinage,
            .mots = mots};
        fenetre = std::make_unique<Textes>(0, contexte);
        fenetre->resize(1280, 860);
        fenetre->show();
    }

    void ouvre(int rang, bool abc = false) {
        affichedocument(fenetre->lecture(), {QStringLiteral("CO"), sixchiffres(rang + 1)}, abc, QString(),
                        {corpus, styles, sablier, [](int) { return QStringLiteral("Code"); }});
    }
    void peint() { fenetre->vue().viewport()->render(&image); }

    QTemporaryDir dossier;
    Corpus corpus;
    ReglagesStore magasin{dossier.filePath(QStringLiteral("reglages.ini"))};
    Reglages reglages{magasin};
    Langue langue{[](const QString&) {}};
    TableStyles styles;
    SablierMuet sablier;
    HoteMuet hote;
    Navigation navigation{hote, corpus};
    Parametres parametres;
    QtNavigateur navigateur;
    QtPressePapiers pressepapiers;
    test::VoisinageScript voisinage;
    test::AideMotsScript mots;
    std::unique_ptr<Textes> fenetre;
    QImage image{1280, 860, QImage::Format_ARGB32_Premultiplied};
};

/// Lives as long as the application object.
std::unique_ptr<Lecteur> commun;

void affichedocumentpeint(benchmark::State& state) {
    Lecteur& lecteur = *commun;
    const int rang = static_cast<int>(state.range(0));
    for ([[maybe_unused]] auto _ : state) {
        lecteur.ouvre(rang);
        lecteur.peint();
    }
    state.SetLabel(std::to_string(tailles[rang]) + " characters");
}
BENCHMARK(affichedocumentpeint)->DenseRange(0, 2)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    commun = std::make_unique<Lecteur>();
    benchmark::RunSpecifiedBenchmarks();
    commun.reset();
    return 0;
}
