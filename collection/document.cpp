#include "collection/document.h"

#include <algorithm>
#include <numeric>

namespace velm {
namespace {

using namespace Qt::Literals::StringLiterals;

constexpr qsizetype longueurdecle = 8;
constexpr qsizetype longueurducode = 2;

constexpr std::array<QStringView, nombredestyles> nomsdesstyles = {u"titre",    u"soustitre",   u"article", u"alinea",
                                                                   u"note",     u"commentaire", u"suite",   u"liste",
                                                                   u"citation", u"formule",     u"tableau"};

QStringView codedecollection(int indice) {
    return codestypes.sliced(indice * longueurducode, longueurducode);
}

} // namespace

int indicedecollection(QStringView code) {
    for (int i = 0; i < nombredecollections; ++i) {
        if (codedecollection(i) == code)
            return i;
    }
    return -1;
}

QString textedelacle(CleDocument cle) {
    return codedecollection(collectiondelacle(cle)).toString() + sixchiffres(numerodelacle(cle));
}

CleDocument lirecle(QStringView texte) {
    if (texte.size() != longueurdecle)
        return pasdecle;
    const int collection = indicedecollection(texte.first(longueurducode));
    if (collection < 0)
        return pasdecle;
    int numero = 0;
    for (const QChar c : texte.sliced(longueurducode)) {
        if (c < u'0' || c > u'9')
            return pasdecle;
        numero = numero * 10 + (c.unicode() - u'0');
    }
    return cledocument(collection, numero);
}

const std::array<int, nombredecollections>& collectionsparcode() {
    static const auto ordre = [] {
        std::array<int, nombredecollections> indices{};
        std::iota(indices.begin(), indices.end(), 0);
        std::sort(indices.begin(), indices.end(),
                  [](int a, int b) { return codedecollection(a) < codedecollection(b); });
        return indices;
    }();
    return ordre;
}

std::optional<StyleSource> styledunom(QStringView nom) {
    const auto trouve = std::find(nomsdesstyles.begin(), nomsdesstyles.end(), nom);
    if (trouve == nomsdesstyles.end())
        return std::nullopt;
    return static_cast<StyleSource>(trouve - nomsdesstyles.begin());
}

/// Running text gets no section: a style sets font and colour of all it covers, and would take bold words, italics and
/// the look of links away.
Sections sectionspardefaut() {
    Sections sections;
    const auto pose = [&](StyleSource style, const QString& nom) { sections[static_cast<std::size_t>(style)] = nom; };
    pose(StyleSource::Titre, u"Titre"_s);
    pose(StyleSource::Soustitre, u"Sous-titre"_s);
    pose(StyleSource::Article, u"Article"_s);
    pose(StyleSource::Note, u"Note"_s);
    pose(StyleSource::Commentaire, u"Commentaire"_s);
    pose(StyleSource::Suite, u"Suite"_s);
    return sections;
}

} // namespace velm
