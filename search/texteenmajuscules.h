#pragma once
// One text looked for in many short ones without regard to case: the same as searching it in upperCase() of each, but
// the text is read as the base holds it and nothing is allocated.
#include <QByteArrayView>
#include <QString>

#include <string>

namespace velm {

class TexteEnMajuscules {
public:
    explicit TexteEnMajuscules(QStringView texte);

    /// Whether a text in UTF-8 contains it. The empty text is in every one.
    bool estdans(QByteArrayView utf8);
    bool estdans(QStringView texte) const;
    const QString& texte() const { return texte_; }

private:
    bool majuscules(QByteArrayView utf8);

    QString texte_;
    std::u16string tampon_;
};

} // namespace velm
