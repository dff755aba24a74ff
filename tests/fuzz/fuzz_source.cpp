// Sources of any content: the files stand one after the other in an input, parted by a byte that no text holds.
// What a source shows must be what its stored body shows.
#include "collection/corps.h"
#include "collection/jetons.h"
#include "collection/mots.h"
#include "collection/source.h"
#include "platform/richtext/rtf.h"
#include "tests/collection/memoire.h"

#include <array>
#include <cstdint>
#include <cstdlib>

namespace {

using namespace Qt::Literals::StringLiterals;
using namespace velm;

constexpr char entrefichiers = '\xFE';

void verifie(const CorpsFait& corps) {
    RichText texte;
    if (!readRtf(corps.contenu, texte))
        abort();
    const QString brut = texte.text();
    QString montre;
    for (const Jeton& jeton : decoupejetons(brut)) {
        // An included text is told by the test of inclusions; here only the document itself is looked at.
        if (jeton.genre == Jeton::Genre::Inclusion || jeton.genre == Jeton::Genre::Douteux)
            return;
        if (jeton.genre == Jeton::Genre::Texte)
            montre += jeton.texte;
        else if (jeton.genre == Jeton::Genre::SautDePage)
            montre += u"\r\n"_s;
    }
    if (montre != corps.montre)
        abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const QByteArray entree(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const QList<QByteArray> parts = entree.split(entrefichiers);
    std::map<QString, QByteArray> fichiers{{u"documents.jsonl"_s, parts[0]}};
    constexpr std::array autres{"arborescence.jsonl", "collection.json", "corps.rtf"};
    for (std::size_t i = 0; i < autres.size() && static_cast<qsizetype>(i) + 1 < parts.size(); ++i)
        fichiers.emplace(QString::fromLatin1(autres[i]), parts[static_cast<qsizetype>(i) + 1]);
    const SourceDossier source(std::make_unique<test::FichiersEnMemoire>(std::move(fichiers)));
    FaiseurDeCorps faiseur(source);
    std::vector<std::unique_ptr<Repertoire>> repertoires;
    repertoires.push_back(std::make_unique<Repertoire>());
    CorpsFait corps;
    for (qsizetype i = 0; i < source.nombre(); ++i) {
        faiseur.fait(i, corps);
        if (source.corps(i).rtf.isNull())
            verifie(corps);
        repertoires[0]->note(static_cast<quint32>(i), corps.montre);
    }
    const Dictionnaire dictionnaire(repertoires);
    for (qsizetype i = 0; i < dictionnaire.nombre(); ++i) {
        if (dictionnaire.liste(i, source).size() % 4 != 0 || motrefuse(dictionnaire.mot(i)))
            abort();
    }
    return 0;
}
