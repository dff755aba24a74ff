#pragma once
// What a job prints on, sheet after sheet. Lengths are twips. Places count from the corner of what the device can
// print; the pen is where the next text begins, and goes to the left edge below it, as a typewriter does.
#include <QRect>
#include <QString>

#include <stdexcept>

namespace velm {

class RichText;

/// The device has failed or gone, or the user has had enough. The job stands as it stood.
class PrintFailure : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

struct PrintFont {
    QString family;
    double points = 10;
    bool bold = false;
    bool italic = false;

    friend bool operator==(const PrintFont&, const PrintFont&) = default;
};

/// Each operation but sheet() and release() throws PrintFailure.
class PrintDevice {
public:
    struct Sheet {
        int width = 0; ///< of the paper
        int height = 0;
        int printableWidth = 0;
        int printableHeight = 0;
        int offsetX = 0; ///< from the paper's corner to that of what can be printed
        int offsetY = 0;

        friend bool operator==(const Sheet&, const Sheet&) = default;
    };
    /// Where a range goes on, and what it reached of its rectangle.
    struct Formatted {
        qsizetype next = 0; ///< the first character not printed
        int bottom = 0;     ///< of the last line printed; the rectangle's top where there is none
    };

    virtual ~PrintDevice() = default;

    virtual Sheet sheet() const = 0;

    // ---- the job
    /// One blank at the pen. Like print() and rule() it opens a job and its first sheet where none is open.
    virtual void blank() = 0;
    /// Ends the sheet and opens the next one.
    virtual void newPage() = 0;
    /// Ends the last sheet and the job, which goes out; nothing where none is open.
    virtual void endDocument() = 0;
    /// Throws the job away.
    virtual void discard() = 0;

    // ---- lines of text
    virtual void setFont(const PrintFont& font) = 0;
    virtual int textWidth(const QString& text) const = 0;
    virtual int textHeight(const QString& text) const = 0;
    virtual void setX(int x) = 0;
    virtual void setY(int y) = 0;
    virtual void print(const QString& text) = 0;
    /// From one place to another at the same height.
    virtual void rule(int from, int to, int y) = 0;

    // ---- ranges of a rich text
    /// Prints characters [from, to) of the text, to the text's end where `to` is -1, into the rectangle, as far as it
    /// has room; at least one line. Going on with the text where it stopped begins nothing anew.
    virtual Formatted format(const RichText& text, qsizetype from, qsizetype to, const QRect& rectangle) = 0;
    /// Forgets what format() keeps for going on.
    virtual void release() = 0;

protected:
    PrintDevice() = default;
    PrintDevice(const PrintDevice&) = default;
    PrintDevice& operator=(const PrintDevice&) = default;
    PrintDevice(PrintDevice&&) = default;
    PrintDevice& operator=(PrintDevice&&) = default;
};

/// The usual paper, all of which can be printed on.
inline constexpr PrintDevice::Sheet sheetA4{11906, 16838, 11906, 16838, 0, 0};

} // namespace velm
