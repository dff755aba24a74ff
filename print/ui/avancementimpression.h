#pragma once
// How far a print has come, in a box that can stop it. What is done at once shows none.
#include "core/texte.h"
#include "print/avancement.h"

#include <QElapsedTimer>
#include <QPointer>
#include <QProgressDialog>

namespace velm {

class AvancementImpression final : public Avancement {
public:
    /// `parent` gives the window over which the box stands; it may give none.
    AvancementImpression(Libelles texte, std::function<QWidget*()> parent);
    ~AvancementImpression() override;
    AvancementImpression(const AvancementImpression&) = delete;
    AvancementImpression& operator=(const AvancementImpression&) = delete;
    AvancementImpression(AvancementImpression&&) = delete;
    AvancementImpression& operator=(AvancementImpression&&) = delete;

    bool page(int faites, int toutes) override;
    void finit() override;

private:
    void montre();

    Libelles texte_;
    std::function<QWidget*()> parent_;
    QElapsedTimer debut_; ///< invalid while nothing is printed
    QElapsedTimer dernier_;
    QPointer<QProgressDialog> boite_;
};

} // namespace velm
