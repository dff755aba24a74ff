// Source folders of any content: the files stand one after the other in an input, parted by a byte that no text holds.
// What a source shows must be what its stored body shows.
#include "collection/corps.h"
#include "collection/jetons.h"
#include "collection/mots.h"
#include "collection/source.h"
#include "platform/richtext/rtf.h"

#include <QFile>
#include <QTemporaryDir>

#include <cstdint>
#include <cstdlib>

namespace {

using namespace Qt::Literals::StringLiterals;
using namespace velm;

constexpr char entrefichiers = '\xFE';

const QTemporaryDir& dossier() {
    static const QTemporaryDir fait;
    return fait;
}

void ecrit(const QString& nom, const QByteArray& contenu) {
    QFile fichier(dossier().filePath(nom));
    if (!fichier.open(QIODevice::WriteOnly | QIODevice::Truncate) || fichier.write(contenu) != contenu.size())
        abort();
}

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
    const QList<QByteArray> fichiers = entree.split(entrefichiers);
    ecrit(u"documents.jsonl"_s, fichiers[0]);
    ecrit(u"arborescence.jsonl"_s, fichiers.value(1));
    ecrit(u"collection.json"_s, fichiers.value(2));
    ecrit(u"corps.rtf"_s, fichiers.value(3));
    const SourceDossier source(dossier().path());
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
