#pragma once
// A document on its way to paper.
#include "platform/richtext/control.h"

#include <QString>

namespace velm {

struct ListesLiens;

/// None is owned.
struct DocumentImprime {
    const RichTextControl& rtf;
    QString titre;
    const ListesLiens* liens = nullptr; ///< its links; null for none
};

} // namespace velm
