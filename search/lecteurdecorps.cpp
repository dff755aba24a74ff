#include "search/lecteurdecorps.h"

#include "platform/richtext/foldtext.h"
#include "platform/richtext/rtf.h"

namespace velm {

using namespace Qt::Literals::StringLiterals;

LecteurDeCorps::LecteurDeCorps(const Database& base, const CriteresLus& criteres)
    : plies_(base, criteres.sanstable ? QString() : u"textes"_s, {u"version"_s, u"texte"_s}),
      contenus_(base, u"données_contenu"_s, {u"contenu"_s}), rangees_(base, u"données"_s, {u"contenu"_s}) {
    for (std::size_t n = 0; n < cherches_.size(); ++n)
        cherches_[n] = {criteres.textes[n], foldedText(criteres.textes[n]), criteres.options[n]};
}

void LecteurDeCorps::relache() {
    rangee_ = aucune;
    plies_.release();
    contenus_.release();
    rangees_.release();
}

void LecteurDeCorps::commence(qint64 rangee) {
    if (rangee == rangee_)
        return;
    relache();
    rangee_ = rangee;
    lu_ = false;
    decode_ = false;
    apli_ =
        plies_.read(rangee) == RowReader::Found::Row && !plies_.isNull(1) && plies_.number(0) == foldedTextVersion();
    if (apli_)
        plie_ = plies_.bytes(1);
}

/// False when it cannot be read.
bool LecteurDeCorps::litcorps() {
    if (lu_)
        return true;
    contenu_ = {};
    const RowReader::Found cote = contenus_.read(rangee_);
    if (cote == RowReader::Found::Failed)
        return false;
    if (cote == RowReader::Found::Row && !contenus_.isNull(0)) {
        contenu_ = contenus_.bytes(0);
    } else {
        const RowReader::Found ici = rangees_.read(rangee_);
        if (ici == RowReader::Found::Failed)
            return false;
        if (ici == RowReader::Found::Row)
            contenu_ = rangees_.bytes(0);
    }
    lu_ = true;
    return true;
}

/// A hit at this place, seen in the beginning of the body.
bool LecteurDeCorps::prouve(const Cherche& cherche, qsizetype place) {
    const qsizetype fin = place + cherche.texte.size();
    if (!decode_)
        rtfToTextStart(contenu_, texte_, fin + 1);
    return find(texte_, cherche.texte, place, fin, cherche.options) == place;
}

std::optional<bool> LecteurDeCorps::contient(qint64 rangee, int texte) {
    const Cherche& cherche = cherches_[static_cast<std::size_t>(texte)];
    commence(rangee);
    const qsizetype place = apli_ ? indexOfBytes(plie_, cherche.plie) : -1;
    if (apli_ && place < 0)
        return false;
    if (!litcorps())
        return std::nullopt;
    if (apli_ && prouve(cherche, place))
        return true;
    if (!decode_)
        rtfToText(contenu_, texte_, RtfLoad::Whole);
    decode_ = true;
    return find(texte_, cherche.texte, 0, -1, cherche.options) >= 0;
}

} // namespace velm
