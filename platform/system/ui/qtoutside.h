#pragma once
// The user's browser, mail program and clipboard.
#include "platform/system/outside.h"

namespace velm {

class QtNavigateur final : public Navigateur {
public:
    Handed openUrl(const QString& address) override;
    Handed mail(const QString& address) override;
    bool openFile(const QString& path) override;
};

/// Rich text is offered under the names by which other programs look for it.
class QtPressePapiers final : public PressePapiers {
public:
    void pose(const ContenuPressePapiers& contenu) override;
    QString texte() const override;
};

} // namespace velm
