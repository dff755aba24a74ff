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
    void aumoins(int twips);

    /// The separator is dropped: over the panel or its grid at x, there; over the search form or a bar at x, so much
    /// beyond the panel; over a document window, the list grows by x.
    enum class Cible { Volet, Formulaire, Document };
    void depose(Cible cible, int x);

    // ---- places inside the panel
    double gaucheseparateur() const;
    double largeurflex() const;
    static double hauteurflex(double hauteurvolet);

private:
    int largeurliste_ = minimum;
};

} // namespace velm
