#include "print/ui/avancementimpression.h"

#include "core/langue.h"
#include "core/nombres.h"
#include "platform/widgets/look/eventturn.h"

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr qint64 patience = 400; ///< milliseconds without a box
constexpr qint64 rythme = 40;    ///< between two looks at what the user does

} // namespace

AvancementImpression::AvancementImpression(Libelles texte, std::function<QWidget*()> parent)
    : texte_(std::move(texte)), parent_(std::move(parent)) {}

AvancementImpression::~AvancementImpression() {
    finit();
}

bool AvancementImpression::page(int faites, int toutes) {
    if (!debut_.isValid()) {
        debut_.start();
        dernier_.start();
        return true;
    }
    if (debut_.elapsed() < patience || dernier_.elapsed() < rythme)
        return true;
    if (!boite_)
        montre();
    boite_->setMaximum(toutes);
    boite_->setValue(toutes > 0 ? faites : 0);
    const QString numero = nombreecrit(faites, texte_);
    boite_->setLabelText(toutes > 0 ? remplace(texte_(Texte::ApercuPage), {numero, nombreecrit(toutes, texte_)})
                                    : remplace(texte_(Texte::AvancePage), {numero}));
    eventTurn();
    dernier_.restart();
    return boite_ && !boite_->wasCanceled();
}

/// Nothing else can be done meanwhile: what is printed must stay as it is.
void AvancementImpression::montre() {
    boite_ = new QProgressDialog(parent_());
    boite_->setObjectName(u"avancement"_s);
    boite_->setWindowTitle(texte_(Texte::AvanceTitre));
    boite_->setCancelButtonText(texte_(Texte::Annuler));
    boite_->setWindowModality(Qt::ApplicationModal);
    boite_->setAutoClose(false);
    boite_->setAutoReset(false);
    boite_->setMinimumDuration(0);
    boite_->show();
}

void AvancementImpression::finit() {
    debut_.invalidate();
    delete boite_;
}

} // namespace velm
