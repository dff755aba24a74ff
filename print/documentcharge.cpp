#include "print/documentcharge.h"

namespace velm {

DocumentCharge::DocumentCharge(const Donnees& donnees) : donnees_(donnees), source_(donnees.corpus) {}

bool DocumentCharge::charge(const Cle& cle) {
    const std::optional<QByteArray> corps = donnees_.corpus.corps(cle);
    if (!corps)
        return false;
    const std::optional<Notice> notice = donnees_.corpus.document(cle);
    titre_ = notice ? notice->titre : QString();
    liens_.vide();
    controle_.setTextRtf(*corps);
    chargecontenu(*this, false, {donnees_.styles, source_, donnees_.sablier});
    return true;
}

} // namespace velm
