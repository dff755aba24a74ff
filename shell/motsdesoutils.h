#pragma once
// What the toolkit itself says (in file dialogs, of keys), in the program's language.
#include "core/texte.h"

#include <QTranslator>

namespace velm {

class MotsDesOutils final : public QTranslator {
    Q_OBJECT

public:
    /// The toolkit's own words for a language (two letters, in any case), and ours for what these lack or name as no
    /// keyboard does. Installed for as long as it lives.
    MotsDesOutils(const QString& langue, Libelles texte);

    QString translate(const char* contexte, const char* source, const char* distinction = nullptr,
                      int nombre = -1) const override;
    bool isEmpty() const override { return false; }

private:
    Libelles texte_;
};

} // namespace velm
