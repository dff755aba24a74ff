#include "collection/aspects.h"

#include <array>

namespace velm {
namespace {

constexpr std::array<Aspect, nombredestyles> aspects = {{
    {"\\pard\\keepn\\sb120\\sa180\\sl276\\slmult1", "\\f1\\cf1", "\\cf1 ", 30, true, false},
    {"\\pard\\keepn\\sb60\\sa140\\sl276\\slmult1", "\\f1\\cf3", "\\cf3 ", 24, false, false},
    {"\\pard\\keepn\\sb180\\sa100\\sl276\\slmult1", "\\f1\\cf2", "\\cf2 ", 22, true, false},
    {"\\pard\\sa140\\sl324\\slmult1", "\\f0\\cf1", "\\cf1 ", 22, false, false},
    {"\\pard\\li284\\ri284\\sa100\\sl288\\slmult1", "\\f0\\cf4", "\\cf4 ", 18, false, false},
    {"\\pard\\li284\\ri284\\sa100\\sl288\\slmult1", "\\f1\\cf4", "\\cf4 ", 18, false, false},
    {"\\pard\\li284\\ri284\\sa100\\sl288\\slmult1", "\\f0\\cf4", "\\cf4 ", 18, false, false},
    {"\\pard{\\pntext\\f0\\'95\\tab}{\\*\\pn\\pnlvlblt\\pnf0\\pnindent284{\\pntxtb\\'95}}"
     "\\fi-284\\li568\\ri284\\sa80\\sl324\\slmult1",
     "\\f0\\cf1", "\\cf1 ", 22, false, false},
    {"\\pard\\li567\\ri567\\sa140\\sl324\\slmult1", "\\f0\\cf3", "\\cf3 ", 22, false, true},
    {"\\pard\\qc\\li567\\ri567\\sa140\\sl324\\slmult1", "\\f0\\cf1", "\\cf1 ", 22, false, false},
    {"\\pard\\sl264\\slmult1", "\\f1\\cf1", "\\cf1 ", 20, false, false},
}};

} // namespace

const Aspect& aspect(StyleSource style) {
    return aspects[static_cast<std::size_t>(style)];
}

QByteArrayView lettredelien(Morceau::Genre genre) {
    switch (genre) {
    case Morceau::Genre::Web:
        return "\\{U=";
    case Morceau::Genre::Mail:
        return "\\{E=";
    default:
        return "\\{L=";
    }
}

} // namespace velm
