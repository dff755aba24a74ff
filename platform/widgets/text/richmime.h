#pragma once
// What a copied part of a rich text offers: RTF, HTML and plain text, each made when somebody asks for it.
#include "platform/richtext/richtext.h"

#include <QMimeData>

namespace velm {

class RichMime final : public QMimeData {
    Q_OBJECT

public:
    explicit RichMime(RichText part) : part_(std::move(part)) {}

    QStringList formats() const override;
    bool hasFormat(const QString& type) const override { return formats().contains(type); }

protected:
    QVariant retrieveData(const QString& type, QMetaType wanted) const override;

private:
    RichText part_;
};

} // namespace velm
