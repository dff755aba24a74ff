#include "platform/richtext/runs_json.h"

#include <array>

namespace velm {
namespace {

constexpr qsizetype pieceSize = 65536;

/// What cannot stand in a text as it is. Half a surrogate pair has no UTF-8: it is written by its number.
void addEscaped(QByteArray& out, QChar c) {
    switch (c.unicode()) {
    case u'"':
    case u'\\':
        out += '\\';
        out += static_cast<char>(c.unicode());
        break;
    case u'\r':
        out += "\\r";
        break;
    case u'\n':
        out += "\\n";
        break;
    case u'\t':
        out += "\\t";
        break;
    default:
        out += "\\u" + QByteArray::number(c.unicode(), 16).rightJustified(4, '0');
    }
}

/// A text between quotes.
void addText(QByteArray& out, QStringView text) {
    out += '"';
    qsizetype plain = 0;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar c = text[i];
        if (c.isHighSurrogate() && i + 1 < text.size() && text[i + 1].isLowSurrogate()) {
            ++i;
        } else if (c < u' ' || c == u'"' || c == u'\\' || c.isSurrogate()) {
            out += text.sliced(plain, i - plain).toUtf8();
            addEscaped(out, c);
            plain = i + 1;
        }
    }
    out += text.sliced(plain).toUtf8();
    out += '"';
}

/// The members of one object, which are given in the order of their names.
class ObjectWriter {
public:
    explicit ObjectWriter(QByteArray& out) : out_(out) { out_ += '{'; }
    void end() { out_ += '}'; }

    void text(const char* name, QStringView value) {
        begin(name);
        addText(out_, value);
    }
    void number(const char* name, int value) {
        begin(name);
        out_ += QByteArray::number(value);
    }
    void halves(const char* name, int value) {
        begin(name);
        constexpr int digits = 12;
        out_ += QByteArray::number(value / 2.0, 'g', digits);
    }
    /// Nothing for the automatic colour.
    void colour(const char* name, std::int32_t value) {
        if (value < 0)
            return;
        begin(name);
        const auto hex = [](std::int32_t part) { return QByteArray::number(part & 0xFF, 16).rightJustified(2, '0'); };
        out_ += "\"#" + hex(value) + hex(value >> 8) + hex(value >> 16) + '"';
    }

private:
    void begin(const char* name) {
        if (!first_)
            out_ += ',';
        first_ = false;
        out_ += '"';
        out_ += name;
        out_ += "\":";
    }

    QByteArray& out_;
    bool first_ = true;
};

void addRun(QByteArray& out, const QString& text, const CharFormat& format) {
    ObjectWriter run(out);
    run.number("b", int{format.bold});
    run.colour("background", format.background);
    run.colour("color", format.colour);
    run.text("font", format.family);
    run.number("hidden", int{format.hidden});
    run.number("i", int{format.italic});
    run.halves("size", format.size);
    run.number("strike", int{format.strike});
    run.text("text", text);
    run.number("u", int{format.underline});
    run.end();
}

/// A picture has no text of its own.
void addPicture(QByteArray& out, const RichText& text, std::int32_t index) {
    static constexpr std::array kinds{"png", "jpeg", "dib", "wmf", "emf", "unknown"};
    ObjectWriter run(out);
    if (static_cast<std::size_t>(index) < text.objects().size()) {
        const RichObject& object = text.objects()[static_cast<std::size_t>(index)];
        run.number("height", object.height);
        run.text("picture", QString::fromLatin1(kinds[static_cast<std::size_t>(object.kind)]));
        run.text("text", u"");
        run.number("width", object.width);
    } else {
        run.text("text", u"");
    }
    run.end();
}

} // namespace

void formatsJson(const RichText& text, const std::function<void(QByteArrayView)>& write) {
    QByteArray out("[");
    bool first = true;
    text.forEachRun(0, text.length(), [&](qsizetype start, qsizetype count, FormatId id) {
        if (!first)
            out += ',';
        first = false;
        const CharFormat& format = text.charFormat(id);
        if (format.object < 0)
            addRun(out, text.text(start, count), format);
        else
            addPicture(out, text, format.object);
        if (out.size() < pieceSize)
            return;
        write(out);
        out.clear();
        out.reserve(pieceSize);
    });
    out += ']';
    write(out);
}

QByteArray formatsJson(const RichText& text) {
    QByteArray all;
    formatsJson(text, [&all](QByteArrayView piece) { all += piece; });
    return all;
}

} // namespace velm
