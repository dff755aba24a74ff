#include "shell/logique/astuces.h"

#include "platform/system/files.h"
#include "platform/text/ansi.h"
#include "shell/logique/commandes.h"

#include <algorithm>
#include <optional>

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

/// Lines end at CR LF, LF or CR; the last one needs no end.
QStringList lignes(const QString& texte) {
    QStringList resultat;
    qsizetype debut = 0;
    while (debut < texte.size()) {
        qsizetype fin = debut;
        while (fin < texte.size() && texte.at(fin) != u'\r' && texte.at(fin) != u'\n')
            ++fin;
        resultat.append(texte.sliced(debut, fin - debut));
        const bool paire = fin + 1 < texte.size() && texte.at(fin) == u'\r' && texte.at(fin + 1) == u'\n';
        debut = fin + (paire ? 2 : 1);
    }
    return resultat;
}

/// The tip of a line; none where it is about what is still to come. Brackets around other words belong to the tip.
std::optional<QString> astucede(const QString& ligne) {
    const qsizetype fin = ligne.startsWith(u'[') ? ligne.indexOf(u"] "_s) : -1;
    const auto besoin = fin > 0 ? besoindunom(QStringView(ligne).sliced(1, fin - 1)) : std::nullopt;
    if (!besoin)
        return ligne;
    return *besoin == Besoin::Attente ? std::nullopt : std::optional(ligne.sliced(fin + 2));
}

} // namespace

Astuces::Astuces(std::function<double()> hasard) : hasard_(std::move(hasard)) {}

QString Astuces::cheminfichier(const QString& dossierapplication, const QString& extension) {
    return joinPath(dossierapplication, u"langues/TIPS."_s + extension);
}

bool Astuces::loadtips(const QString& fichier) {
    astuces_.clear();
    courante_ = 0;
    const FileBytes source = readPlain(fichier);
    if (!source.ok())
        return false;
    for (const QString& ligne : lignes(ansi::decodeFile(source.bytes))) {
        if (const auto astuce = astucede(ligne))
            astuces_ << *astuce;
    }
    nexttip();
    return true;
}

void Astuces::nexttip() {
    if (astuces_.isEmpty())
        return;
    const auto tiree = static_cast<qsizetype>(hasard_() * static_cast<double>(astuces_.size()) + 1);
    courante_ = std::clamp<qsizetype>(tiree, 1, astuces_.size());
}

QString Astuces::displaycurrenttip() const {
    return courante_ > 0 ? astuces_.at(courante_ - 1) : QString();
}

} // namespace velm
