#pragma once
// The size at which documents are shown before the user has chosen one.

namespace velm {

/// Per cent, by the width of the screen in pixels of the layout: on a wide one the sheet takes about three fifths of
/// what a window that fills it leaves to the text.
constexpr int premierzoom(int largeurdelecran) {
    constexpr int normal = 100;
    constexpr int plusgrand = 200;
    constexpr int pas = 10;
    constexpr int acote = 380;   // bars, contents and scroll bar
    constexpr int feuille = 670; // at 100 %
    const int voulu = (largeurdelecran - acote) * 60 / feuille;
    const int rond = (voulu + pas / 2) / pas * pas;
    return rond < normal ? normal : rond > plusgrand ? plusgrand : rond;
}

} // namespace velm
