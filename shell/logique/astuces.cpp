#include "shell/logique/astuces.h"

#include "platform/system/files.h"
#include "platform/text/ansi.h"

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
    astuces_ = lignes(ansi::decodeFile(source.bytes));
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
