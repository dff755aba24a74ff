#pragma once
// The widths of the selection panel, in twips.

namespace velm {

class LargeurVolet {
public:
    static constexpr int minimum = 60;
    /// A selection tool shows its result at least so wide.
    static constexpr int minimumoutil = 2000;

    /// From the width that is kept between runs.
    explicit LargeurVolet(double largeurpane);

    int largeurliste() const { return largeurliste_; }
    double largeurpane() const { return largeurliste_ + double{minimum}; }
    /// The list's width, never below the minimum.
    void changelargeurliste(int twips);

private:
    int largeurliste_ = minimum;
};

} // namespace velm
