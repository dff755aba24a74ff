#pragma once
// The size at which documents are shown before the user has chosen one.

namespace velm {

/// Per cent, by the width of the screen in pixels of the layout: a wide one has room for larger type, so that the sheet
/// takes about three fifths of it.
constexpr int premierzoom(int largeurdelecran) {
    constexpr int large = 1500;
    return largeurdelecran >= large ? 125 : 100;
}

} // namespace velm
