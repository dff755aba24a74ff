#include "shell/motsdesoutils.h"

#include <QCoreApplication>
#include <QLibraryInfo>

#include <string_view>

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

struct Mot {
    std::string_view contexte;
    std::string_view source;
    Texte texte;
};

constexpr Mot mots[] = {{"QShortcut", "Return", Texte::ToucheEntree},
                        {"QAbstractFileIconProvider", "Folder", Texte::SorteDossier}};

} // namespace

MotsDesOutils::MotsDesOutils(const QString& langue, Libelles texte) : texte_(std::move(texte)) {
    static_cast<void>(load(u"qtbase_"_s + langue.toLower(), QLibraryInfo::path(QLibraryInfo::TranslationsPath)));
    QCoreApplication::installTranslator(this);
}

QString MotsDesOutils::translate(const char* contexte, const char* source, const char* distinction, int nombre) const {
    for (const Mot& mot : mots) {
        if (mot.contexte == contexte && mot.source == source)
            return texte_(mot.texte);
    }
    return QTranslator::translate(contexte, source, distinction, nombre);
}

} // namespace velm
