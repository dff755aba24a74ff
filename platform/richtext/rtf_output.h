#pragma once
// RTF being written: control words only where a format changes.
#include "platform/richtext/format.h"

#include <QByteArray>
#include <QHash>
#include <QStringList>
#include <QStringView>

#include <vector>

namespace velm::rtf {

class Output {
public:
    void reserve(qsizetype size) { bytes_.reserve(size); }

    // ---- before the header: what will be used
    void use(const CharFormat& format);
    void use(const ParaFormat& format) { hasBullets_ = hasBullets_ || format.bullet; }
    bool hasBullets() const { return hasBullets_; }

    void header();
    /// Begins a paragraph.
    void paragraph(const ParaFormat& format);
    void character(const CharFormat& format);
    void text(QStringView units);
    void picture(const RichObject& object);
    void endParagraph();
    QByteArray finish();

private:
    void put(char c);
    void word(const char* name);
    void word(const char* name, int number);
    void flag(const char* name, bool on);
    void hex(unsigned char byte);
    void unit(char16_t unit);
    void unicode(char16_t unit);
    void fontName(const QString& family);
    void bulletText();
    void paragraphWords(const ParaFormat& format);
    void offset(int twips);
    int fontOf(const QString& family) const { return families_.value(family, 0); }
    int colourOf(std::int32_t colour) const { return colour < 0 ? 0 : colours_.value(colour, 0); }

    QByteArray bytes_;
    bool afterWord_ = false; ///< a letter, digit, blank or minus would be read as part of the control word
    bool isSymbol_ = false;  ///< the font has no letters: bytes stand for themselves
    bool hasBullets_ = false;
    int bulletFont_ = 0;
    QHash<QString, int> families_;
    QStringList familyList_;
    QHash<std::int32_t, int> colours_;
    std::vector<std::int32_t> colourList_;
    CharFormat character_;
    ParaFormat paragraph_;
};

} // namespace velm::rtf
