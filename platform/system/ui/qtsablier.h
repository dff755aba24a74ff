#pragma once
#include "platform/system/sablier.h"

#include <QCursor>
#include <QGuiApplication>

namespace velm {

/// The screen's pointer.
class QtSablier final : public Sablier {
public:
    int pointeur() const override { return valeur_; }
    void fixepointeur(int valeur) override {
        if (valeur == valeur_)
            return;
        if (valeur_ != defaut)
            QGuiApplication::restoreOverrideCursor();
        valeur_ = valeur;
        if (valeur == attente)
            QGuiApplication::setOverrideCursor(Qt::WaitCursor);
        else if (valeur != defaut)
            QGuiApplication::setOverrideCursor(Qt::ArrowCursor);
    }

private:
    int valeur_ = defaut;
};

} // namespace velm
