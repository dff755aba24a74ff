#include "core/langue.h"

#include "platform/base/failure.h"
#include "platform/system/files.h"

#include <algorithm>

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr auto sectiondestextes = u"VELMORANTE 2000";

/// The French file beside another one: the last two characters of the name replaced.
QString fichierfrancais(const QString& chemin) {
    return chemin.left(std::max<qsizetype>(0, chemin.size() - 2)) + u"FR"_s;
}

} // namespace

QString Langue::cheminfichier(const QString& dossier, const QString& extension) {
    return joinPath(dossier, u"langues/RES2000."_s + extension);
}

bool Langue::estextension(QStringView extension) {
    const auto lettre = [](QChar c) { return (c >= u'A' && c <= u'Z') || (c >= u'a' && c <= u'z'); };
    return extension.size() == 2 && std::all_of(extension.begin(), extension.end(), lettre);
}

Langue::Langue(std::function<void(const QString&)> signale) : signale_(std::move(signale)), cache_(nombredetextes) {}

void Langue::choisitfichier(const QString& dossierapplication, const QString& dossierprogramme,
                            const QString& extension) {
    dossierprogramme_ = dossierprogramme;
    extension_ = estextension(extension) ? extension : u"FR"_s;
    fichier_ = cheminfichier(dossierapplication, extension_);
}

QString Langue::lit(const QString& chemin, int n) {
    auto profil = profils_.find(chemin);
    if (profil == profils_.end())
        profil = profils_.insert(chemin, Profile(chemin));
    ++lectures_;
    return profil->string(QStringView(sectiondestextes).toString(), QString::number(n), QString());
}

QString Langue::lireressource(Texte lequel) {
    const int n = static_cast<int>(lequel);
    if (n < 0 || n >= nombredetextes)
        runtimeError(Failure::ArrayBounds, {QString::number(n), QString::number(nombredetextes - 1)});
    if (!cache_.at(n).isEmpty())
        return cache_.at(n);
    QString texte = lit(fichier_, n);
    if (texte.isEmpty() && !fichier_.endsWith(u"FR"_s))
        texte = lit(fichierfrancais(fichier_), n);
    if (texte.isEmpty()) {
        // From now on the file beside the program is the language file, whatever the settings say.
        fichier_ = cheminfichier(dossierprogramme_, extension_);
        texte = lit(fichierfrancais(fichier_), n);
    }
    if (texte.isEmpty())
        signale_(QString::number(n));
    cache_[n] = texte;
    return texte;
}

QString remplace(const QString& texte, const QStringList& parties) {
    QString resultat;
    for (qsizetype i = 0; i < texte.size(); ++i) {
        const int rang = texte.at(i) == u'%' && i + 1 < texte.size() ? texte.at(i + 1).digitValue() : 0;
        if (rang >= 1 && rang <= parties.size()) {
            resultat += parties.at(rang - 1);
            ++i;
        } else {
            resultat += texte.at(i);
        }
    }
    return resultat;
}

} // namespace velm
