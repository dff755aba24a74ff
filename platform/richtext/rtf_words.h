#pragma once
// The control words that the RTF reader knows, found without a comparison of strings: the letters of a word lie in two
// 64-bit numbers, one multiplication gives its place in a table without collisions.
#include <cstdint>

namespace velm::rtf {

// The order matters: the words of the first list change the text, those of the second only its formats.
// clang-format off
#define VELM_RTF_TEXT_WORDS(X) \
    X(par) X(tab) X(line) X(pard) X(plain) X(f) X(u) X(uc) X(cell) X(row) X(trowd) X(cellx) X(intbl) X(nestcell) \
    X(nestrow) X(trleft) X(trgaph) X(page) X(sect) X(column) X(lbr) X(bin) X(ansi) X(mac) X(pc) X(pca) X(ansicpg) \
    X(deff) X(fonttbl) X(colortbl) X(stylesheet) X(info) X(header) X(headerl) X(headerr) X(headerf) X(footer) \
    X(footerl) X(footerr) X(footerf) X(footnote) X(annotation) X(ftnsep) X(ftnsepc) X(ftncn) X(aftnsep) X(aftnsepc) \
    X(aftncn) X(pict) X(nonshppict) X(shppict) X(fldinst) X(objdata) X(objclass) X(objname) X(pntext) X(listtext) \
    X(pn) X(pntxta) X(pntxtb) X(nesttableprops) X(nonesttables) X(upr) X(ud) X(xe) X(tc) X(tcn) X(rxe) X(txe) \
    X(listtable) X(revtbl) X(filetbl) X(sp) X(shpinst) X(emdash) X(endash) X(bullet) X(lquote) X(rquote) \
    X(ldblquote) X(rdblquote) X(emspace) X(enspace) X(qmspace) X(ltrmark) X(rtlmark) X(zwj) X(zwnj) X(zwbo) X(zwnbo)
#define VELM_RTF_FORMAT_WORDS(X) \
    X(b) X(i) X(ul) X(ulnone) X(uld) X(uldb) X(uldash) X(uldashd) X(uldashdd) X(ulth) X(ulw) X(ulwave) X(strike) \
    X(striked) X(v) X(fs) X(cf) X(cb) X(highlight) X(chcbpat) X(super) X(sub) X(nosupersub) X(up) X(dn) \
    X(twipoffset) X(ql) X(qr) X(qc) X(qj) X(qd) X(li) X(fi) X(ri) X(sb) X(sa) X(sl) X(slmult) X(tx)
// clang-format on

enum class Word : std::uint8_t {
    unknown,
#define VELM_X(name) name,
    VELM_RTF_TEXT_WORDS(VELM_X) VELM_RTF_FORMAT_WORDS(VELM_X)
#undef VELM_X
};

constexpr bool changesText(Word word) {
    return word < Word::b;
}

/// Up to 16 letters, the first in the lowest byte; longer words are unknown.
struct Letters {
    std::uint64_t low = 0;
    std::uint64_t high = 0;
    friend constexpr bool operator==(const Letters&, const Letters&) = default;
};

inline constexpr unsigned slotBits = 12;
struct WordTable {
    std::uint64_t factor;
    Letters words[256];
    std::uint8_t places[1U << slotBits];
};
extern const WordTable wordTable;

constexpr unsigned slotOf(const Letters& letters, std::uint64_t factor) {
    return static_cast<unsigned>(((letters.low ^ (letters.high << 7) ^ (letters.high >> 11)) * factor) >>
                                 (64 - slotBits));
}

inline Word wordOf(const Letters& letters) {
    const std::uint8_t index = wordTable.places[slotOf(letters, wordTable.factor)];
    return wordTable.words[index] == letters ? static_cast<Word>(index) : Word::unknown;
}

} // namespace velm::rtf
