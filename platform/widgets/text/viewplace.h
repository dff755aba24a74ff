#pragma once
// Keeps what is read where it is on the screen while heights above it become known or change, and moves the pixels of a
// scrolled view only where a move gives the right picture.
#include "platform/widgets/text/seenplaces.h"

#include <QAbstractScrollArea>

#include <functional>

namespace velm {

class PaperLayout;

class ViewPlace {
public:
    /// Both outlive it. `went` is told when what the screen shows has moved.
    ViewPlace(QAbstractScrollArea& view, PaperLayout& layout, std::function<void()> went);

    /// While one lives heights and scroll bar may change at will; when the last goes, the pixels follow.
    class Moving {
    public:
        explicit Moving(ViewPlace& place);
        ~Moving();
        Moving(const Moving&) = delete;
        Moving& operator=(const Moving&) = delete;

    private:
        ViewPlace& place_;
    };
    bool isMoving() const { return moving_ > 0; }

    /// A line at the screen's top; at the text's top the height above it.
    struct Anchor {
        int position = 0; ///< in the document
        int offset = 0;   ///< pixels of the line above the screen
        bool atTop = true;
    };
    Anchor anchor();
    void restore(const Anchor& anchor);
    /// Where the toolkit had something laid out above the screen, what the screen shows stays where it is.
    void stay();
    /// Lays out the screen and one more above and below.
    void layOutAround();
    /// Scrolls, if need be, until a position of the document shows, and not at the screen's very edge.
    void reveal(int position);

private:
    void followPlaces();
    void tellHeight();
    void revealColumn(int position);
    void scrollTo(std::int64_t top);
    std::int64_t top() const;
    int height() const;

    QAbstractScrollArea& view_;
    PaperLayout& layout_;
    std::function<void()> went_;
    int moving_ = 0;
    SeenPlaces seen_; ///< what the pixels show
};

} // namespace velm
