#include "collection/champs.h"

#include "core/texte.h"

#include <QDate>

#include <algorithm>

namespace velm {
namespace {

using namespace Qt::Literals::StringLiterals;

constexpr qsizetype longueurdunedate = 10;

/// Lists part their columns by tabs and their rows by line ends: a field holds neither.
QString uneligne(QString texte) {
    std::replace_if(
        texte.begin(), texte.end(), [](QChar c) { return c < u' '; }, u' ');
    return texte;
}

} // namespace

void Champs::texte(const QString& nom, QString& valeur) {
    if (json_.genre() == LecteurJson::Genre::Texte)
        valeur = uneligne(json_.texte());
    else
        nulou(nom);
}

void Champs::entier(const QString& nom, std::optional<qint64>& valeur) {
    if (json_.genre() == LecteurJson::Genre::Nombre) {
        qint64 lu = 0;
        if (json_.entier(lu))
            valeur = lu;
        else
            nature(nom);
    } else {
        nulou(nom);
    }
}

void Champs::date(const QString& nom, QString& valeur) {
    texte(nom, valeur);
    if (!valeur.isEmpty() &&
        (valeur.size() != longueurdunedate || !QDate::fromString(valeur, u"yyyy-MM-dd"_s).isValid())) {
        signale_(Texte::DateIncorrecte, valeur, false);
        valeur.clear();
    }
}

void Champs::nature(const QString& nom) {
    if (json_.juste())
        signale_(Texte::NatureInattendue, nom, false);
}

void Champs::inconnu(const QString& nom) {
    json_.passe();
    if (json_.juste())
        signale_(Texte::ChampInconnu, nom, true);
}

void Champs::nulou(const QString& nom) {
    if (json_.genre() != LecteurJson::Genre::Nul)
        nature(nom);
    json_.passe();
}

bool signalefaute(const LecteurJson& json, const Signale& signale) {
    if (json.juste())
        return false;
    if (json.erreur() == LecteurJson::Erreur::Utf8)
        signale(Texte::PasDeLUtf8, {}, false);
    else
        signale(Texte::JsonIncorrect, QString::number(json.colonne()) + u", "_s + json.extrait(), false);
    return true;
}

std::optional<qint32> lirecouleur(const QString& texte) {
    bool bon = false;
    const uint rvb = QStringView(texte).mid(1).toUInt(&bon, 16);
    if (!bon || texte.size() != 7 || texte[0] != u'#')
        return std::nullopt;
    // Red is the low byte of a stored colour.
    return static_cast<qint32>((rvb & 0xFFU) << 16 | (rvb & 0xFF00U) | rvb >> 16);
}

} // namespace velm
