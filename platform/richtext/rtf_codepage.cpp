#include "platform/richtext/rtf_codepage.h"

#include <QStringDecoder>

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <memory>
#include <string_view>

namespace velm::rtf {
namespace {

struct Upper {
    int number;
    std::u16string_view units; ///< the characters of the bytes 80 to FF; undefined ones keep their value
};

// clang-format off
constexpr Upper uppers[] = {
    {1250,
     u"€\x81‚\x83„…†‡\x88‰Š‹ŚŤŽŹ\x90‘’“”•–—\x98™š›śťžź\u00A0ˇ˘Ł¤Ą¦§¨©Ş«¬\u00AD®Ż°±˛ł´µ¶·¸ąş»Ľ˝ľż"
     u"ŔÁÂĂÄĹĆÇČÉĘËĚÍÎĎĐŃŇÓÔŐÖ×ŘŮÚŰÜÝŢßŕáâăäĺćçčéęëěíîďđńňóôőö÷řůúűüýţ˙"},
    {1251,
     u"ЂЃ‚ѓ„…†‡€‰Љ‹ЊЌЋЏђ‘’“”•–—\x98™љ›њќћџ\u00A0ЎўЈ¤Ґ¦§Ё©Є«¬\u00AD®Ї°±Ііґµ¶·ё№є»јЅѕї"
     u"АБВГДЕЖЗИЙКЛМНОПРСТУФХЦЧШЩЪЫЬЭЮЯабвгдежзийклмнопрстуфхцчшщъыьэюя"},
    {1252,
     u"€\x81‚ƒ„…†‡ˆ‰Š‹Œ\x8DŽ\x8F\x90‘’“”•–—˜™š›œ\x9DžŸ\u00A0¡¢£¤¥¦§¨©ª«¬\u00AD®¯°±²³´µ¶·¸¹º»¼½¾¿"
     u"ÀÁÂÃÄÅÆÇÈÉÊËÌÍÎÏÐÑÒÓÔÕÖ×ØÙÚÛÜÝÞßàáâãäåæçèéêëìíîïðñòóôõö÷øùúûüýþÿ"},
    {1253,
     u"€\x81‚ƒ„…†‡\x88‰\x8A‹\x8C\x8D\x8E\x8F\x90‘’“”•–—\x98™\x9A›\x9C\x9D\x9E\x9F\u00A0΅Ά£¤¥¦§¨©ª«¬\u00AD®―°±²³΄µ¶·ΈΉΊ»Ό½ΎΏ"
     u"ΐΑΒΓΔΕΖΗΘΙΚΛΜΝΞΟΠΡÒΣΤΥΦΧΨΩΪΫάέήίΰαβγδεζηθικλμνξοπρςστυφχψωϊϋόύώÿ"},
    {1254,
     u"€\x81‚ƒ„…†‡ˆ‰Š‹Œ\x8D\x8E\x8F\x90‘’“”•–—˜™š›œ\x9D\x9EŸ\u00A0¡¢£¤¥¦§¨©ª«¬\u00AD®¯°±²³´µ¶·¸¹º»¼½¾¿"
     u"ÀÁÂÃÄÅÆÇÈÉÊËÌÍÎÏĞÑÒÓÔÕÖ×ØÙÚÛÜİŞßàáâãäåæçèéêëìíîïğñòóôõö÷øùúûüışÿ"},
    {1255,
     u"€\x81‚ƒ„…†‡ˆ‰\x8A‹\x8C\x8D\x8E\x8F\x90‘’“”•–—˜™\x9A›\x9C\x9D\x9E\x9F\u00A0¡¢£₪¥¦§¨©×«¬\u00AD®¯°±²³´µ¶·¸¹÷»¼½¾¿"
     u"\u05B0\u05B1\u05B2\u05B3\u05B4\u05B5\u05B6\u05B7\u05B8\u05B9Ê\u05BB\u05BC\u05BD־\u05BF׀\u05C1\u05C2׃װױײ׳״ÙÚÛÜÝÞßאבגדהוזחטיךכלםמןנסעףפץצקרשתûü\u200E\u200Fÿ"},
    {1256,
     u"€پ‚ƒ„…†‡ˆ‰ٹ‹Œچژڈگ‘’“”•–—ک™ڑ›œ\u200C\u200Dں\u00A0،¢£¤¥¦§¨©ھ«¬\u00AD®¯°±²³´µ¶·¸¹؛»¼½¾؟"
     u"ہءآأؤإئابةتثجحخدذرزسشصض×طظعغـفقكàلâمنهوçèéêëىيîï\u064B\u064C\u064D\u064Eô\u064F\u0650÷\u0651ù\u0652ûü\u200E\u200Fے"},
    {1257,
     u"€\x81‚\x83„…†‡\x88‰\x8A‹\x8C¨ˇ¸\x90‘’“”•–—\x98™\x9A›\x9C¯˛\x9F\u00A0¡¢£¤¥¦§Ø©Ŗ«¬\u00AD®Æ°±²³´µ¶·ø¹ŗ»¼½¾æ"
     u"ĄĮĀĆÄÅĘĒČÉŹĖĢĶĪĻŠŃŅÓŌÕÖ×ŲŁŚŪÜŻŽßąįāćäåęēčéźėģķīļšńņóōõö÷ųłśūüżž˙"},
    {1258,
     u"€\x81‚ƒ„…†‡ˆ‰\x8A‹Œ\x8D\x8E\x8F\x90‘’“”•–—˜™\x9A›œ\x9D\x9EŸ\u00A0¡¢£¤¥¦§¨©ª«¬\u00AD®¯°±²³´µ¶·¸¹º»¼½¾¿"
     u"ÀÁÂĂÄÅÆÇÈÉÊË\u0300ÍÎÏĐÑ\u0309ÓÔƠÖ×ØÙÚÛÜƯ\u0303ßàáâăäåæçèéêë\u0301íîïđñ\u0323óôơö÷øùúûüư₫ÿ"},
    {874,
     u"€\x81\x82\x83\x84…\x86\x87\x88\x89\x8A\x8B\x8C\x8D\x8E\x8F\x90‘’“”•–—\x98\x99\x9A\x9B\x9C\x9D\x9E\x9F\u00A0กขฃคฅฆงจฉชซฌญฎฏฐฑฒณดตถทธนบปผฝพฟ"
     u"ภมยรฤลฦวศษสหฬอฮฯะ\u0E31าำ\u0E34\u0E35\u0E36\u0E37\u0E38\u0E39\u0E3AÛÜÝÞ฿เแโใไๅๆ\u0E47\u0E48\u0E49\u0E4A\u0E4B\u0E4C\u0E4D\u0E4E๏๐๑๒๓๔๕๖๗๘๙๚๛üýþÿ"},
    {437,
     u"ÇüéâäàåçêëèïîìÄÅÉæÆôöòûùÿÖÜ¢£¥₧ƒáíóúñÑªº¿⌐¬½¼¡«»░▒▓│┤╡╢╖╕╣║╗╝╜╛┐"
     u"└┴┬├─┼╞╟╚╔╩╦╠═╬╧╨╤╥╙╘╒╓╫╪┘┌█▄▌▐▀αßΓπΣσµτΦΘΩδ∞φε∩≡±≥≤⌠⌡÷≈°∙·√ⁿ²■\u00A0"},
    {850,
     u"ÇüéâäàåçêëèïîìÄÅÉæÆôöòûùÿÖÜø£Ø×ƒáíóúñÑªº¿®¬½¼¡«»░▒▓│┤ÁÂÀ©╣║╗╝¢¥┐"
     u"└┴┬├─┼ãÃ╚╔╩╦╠═╬¤ðÐÊËÈıÍÎÏ┘┌█▄¦Ì▀ÓßÔÒõÕµþÞÚÛÙýÝ¯´\u00AD±‗¾¶§÷¸°¨·¹³²■\u00A0"},
    {852,
     u"ÇüéâäůćçłëŐőîŹÄĆÉĹĺôöĽľŚśÖÜŤťŁ×čáíóúĄąŽžĘę¬źČş«»░▒▓│┤ÁÂĚŞ╣║╗╝Żż┐"
     u"└┴┬├─┼Ăă╚╔╩╦╠═╬¤đĐĎËďŇÍÎě┘┌█▄ŢŮ▀ÓßÔŃńňŠšŔÚŕŰýÝţ´\u00AD˝˛ˇ˘§÷¸°¨˙űŘř■\u00A0"},
    {860,
     u"ÇüéâãàÁçêÊèÍÔìÃÂÉÀÈôõòÚùÌÕÜ¢£Ù₧ÓáíóúñÑªº¿Ò¬½¼¡«»░▒▓│┤╡╢╖╕╣║╗╝╜╛┐"
     u"└┴┬├─┼╞╟╚╔╩╦╠═╬╧╨╤╥╙╘╒╓╫╪┘┌█▄▌▐▀αßΓπΣσµτΦΘΩδ∞φε∩≡±≥≤⌠⌡÷≈°∙·√ⁿ²■\u00A0"},
    {863,
     u"ÇüéâÂà¶çêëèïî‗À§ÉÈÊôËÏûù¤ÔÜ¢£ÙÛƒ¦´óú¨¸³¯Î⌐¬½¼¾«»░▒▓│┤╡╢╖╕╣║╗╝╜╛┐"
     u"└┴┬├─┼╞╟╚╔╩╦╠═╬╧╨╤╥╙╘╒╓╫╪┘┌█▄▌▐▀αßΓπΣσµτΦΘΩδ∞φε∩≡±≥≤⌠⌡÷≈°∙·√ⁿ²■\u00A0"},
    {865,
     u"ÇüéâäàåçêëèïîìÄÅÉæÆôöòûùÿÖÜø£Ø₧ƒáíóúñÑªº¿⌐¬½¼¡«¤░▒▓│┤╡╢╖╕╣║╗╝╜╛┐"
     u"└┴┬├─┼╞╟╚╔╩╦╠═╬╧╨╤╥╙╘╒╓╫╪┘┌█▄▌▐▀αßΓπΣσµτΦΘΩδ∞φε∩≡±≥≤⌠⌡÷≈°∙·√ⁿ²■\u00A0"},
    {866,
     u"АБВГДЕЖЗИЙКЛМНОПРСТУФХЦЧШЩЪЫЬЭЮЯабвгдежзийклмноп░▒▓│┤╡╢╖╕╣║╗╝╜╛┐"
     u"└┴┬├─┼╞╟╚╔╩╦╠═╬╧╨╤╥╙╘╒╓╫╪┘┌█▄▌▐▀рстуфхцчшщъыьэюяЁёЄєЇїЎў°∙·√№¤■\u00A0"},
    {10000,
     u"ÄÅÇÉÑÖÜáàâäãåçéèêëíìîïñóòôöõúùûü†°¢£§•¶ß®©™´¨≠ÆØ∞±≤≥¥µ∂∑∏π∫ªºΩæø"
     u"¿¡¬√ƒ≈∆«»…\u00A0ÀÃÕŒœ–—“”‘’÷◊ÿŸ⁄€‹›ﬁﬂ‡·‚„‰ÂÊÁËÈÍÎÏÌÓÔ\uF8FFÒÚÛÙıˆ˜¯˘˙˚¸˝˛ˇ"},
    {10006,
     u"Ä¹²É³ÖÜ΅àâä΄¨çéèêë£™îï•½‰ôö¦€ùûü†ΓΔΘΛΞΠß®©ΣΪ§≠°·Α±≤≥¥ΒΕΖΗΙΚΜΦΫΨΩ"
     u"άΝ¬ΟΡ≈Τ«»…\u00A0ΥΧΆΈœ–―“”‘’÷ΉΊΌΎέήίόΏύαβψδεφγηιξκλμνοπώρστθωςχυζϊϋΐΰ\u00AD"},
    {10007,
     u"АБВГДЕЖЗИЙКЛМНОПРСТУФХЦЧШЩЪЫЬЭЮЯ†°Ґ£§•¶І®©™Ђђ≠Ѓѓ∞±≤≥іµґЈЄєЇїЉљЊњ"
     u"јЅ¬√ƒ≈∆«»…\u00A0ЋћЌќѕ–—“”‘’÷„ЎўЏџ№Ёёяабвгдежзийклмнопрстуфхцчшщъыьэю€"},
    {10029,
     u"ÄĀāÉĄÖÜáąČäčĆćéŹźĎíďĒēĖóėôöõúĚěü†°Ę£§•¶ß®©™ę¨≠ģĮįĪ≤≥īĶ∂∑łĻļĽľĹĺŅ"
     u"ņŃ¬√ńŇ∆«»…\u00A0ňŐÕőŌ–—“”‘’÷◊ōŔŕŘ‹›řŖŗŠ‚„šŚśÁŤťÍŽžŪÓÔūŮÚůŰűŲųÝýķŻŁżĢˇ"},
    {10081,
     u"ÄÅÇÉÑÖÜáàâäãåçéèêëíìîïñóòôöõúùûü†°¢£§•¶ß®©™´¨≠ÆØ∞±≤≥¥µ∂∑∏π∫ªºΩæø"
     u"¿¡¬√ƒ≈∆«»…\u00A0ÀÃÕŒœ–—“”‘’÷◊ÿŸĞğİıŞş‡·‚„‰ÂÊÁËÈÍÎÏÌÓÔ\uF8FFÒÚÛÙ\uF8A0ˆ˜¯˘˙˚¸˝˛ˇ"},
};
// clang-format on

constexpr bool complete() {
    return std::all_of(std::begin(uppers), std::end(uppers), [](const Upper& u) { return u.units.size() == 128; });
}
static_assert(complete());

/// NUL reads as a blank; line ends are no characters.
void setLower(CodePage& page) {
    for (unsigned i = 0; i < 0x80; ++i)
        page.units[i] = static_cast<char16_t>(i);
    page.units[0] = u' ';
    page.units['\r'] = 0;
    page.units['\n'] = 0;
}

CodePage identityPage(int number) {
    CodePage page;
    page.number = number;
    setLower(page);
    for (unsigned i = 0x80; i < 0x100; ++i)
        page.units[i] = static_cast<char16_t>(i);
    return page;
}

std::vector<CodePage> makeSinglePages() {
    std::vector<CodePage> pages;
    for (const Upper& upper : uppers) {
        CodePage page;
        page.number = upper.number;
        setLower(page);
        std::copy(upper.units.begin(), upper.units.end(), page.units.begin() + 0x80);
        pages.push_back(page);
    }
    for (const int number : {symbolPage, 819, 28591})
        pages.push_back(identityPage(number));
    CodePage utf8 = identityPage(65001);
    utf8.kind = CodePage::Kind::Utf8;
    std::fill(utf8.units.begin() + 0x80, utf8.units.end(), char16_t{0});
    pages.push_back(utf8);
    return pages;
}

const std::vector<CodePage>& singlePages() {
    static const std::vector<CodePage> pages = makeSinglePages();
    return pages;
}

constexpr bool isShiftJisLead(unsigned byte) {
    return (byte >= 0x81 && byte <= 0x9F) || (byte >= 0xE0 && byte <= 0xFC);
}
constexpr bool isAnyLead(unsigned byte) {
    return byte >= 0x81 && byte <= 0xFE;
}

/// The pairs of a page from the platform's converters; where those lack, there is none.
std::vector<char16_t> makePairs(const char* name) {
    std::vector<char16_t> pairs(std::size_t{128} * 256, 0);
    QStringDecoder decoder(name);
    for (unsigned place = 0x131; decoder.isValid() && place < pairs.size(); ++place) {
        const char bytes[2] = {static_cast<char>(0x80 + place / 256), static_cast<char>(place % 256)};
        decoder.resetState();
        const QString text = decoder.decode(QByteArrayView(bytes, 2));
        if (text.size() == 1 && text.front() != QChar::ReplacementCharacter)
            pairs[place] = text.front().unicode();
    }
    return pairs;
}

const std::vector<char16_t>& japanesePairs() {
    static const std::vector<char16_t> pairs = makePairs("windows-31j");
    return pairs;
}
const std::vector<char16_t>& simplifiedChinesePairs() {
    static const std::vector<char16_t> pairs = makePairs("GBK");
    return pairs;
}
const std::vector<char16_t>& koreanPairs() {
    static const std::vector<char16_t> pairs = makePairs("windows-949");
    return pairs;
}
const std::vector<char16_t>& traditionalChinesePairs() {
    static const std::vector<char16_t> pairs = makePairs("windows-950");
    return pairs;
}

CodePage makeDoublePage(int number, bool (*isLead)(unsigned), const std::vector<char16_t>& (*pairs)()) {
    CodePage page = identityPage(number);
    page.kind = CodePage::Kind::Double;
    page.pairs = pairs;
    for (unsigned byte = 0x80; byte < 0x100; ++byte) {
        if (isLead(byte))
            page.units[byte] = 0;
    }
    return page;
}

CodePage makeJapanesePage() {
    CodePage page = makeDoublePage(932, isShiftJisLead, japanesePairs);
    for (unsigned byte = 0xA1; byte <= 0xDF; ++byte)
        page.units[byte] = static_cast<char16_t>(0xFF61 + byte - 0xA1); // half-width katakana
    return page;
}

const CodePage* doublePage(int number) {
    static const CodePage japanese = makeJapanesePage();
    static const CodePage simplified = makeDoublePage(936, isAnyLead, simplifiedChinesePairs);
    static const CodePage korean = makeDoublePage(949, isAnyLead, koreanPairs);
    static const CodePage traditional = makeDoublePage(950, isAnyLead, traditionalChinesePairs);
    switch (number) {
    case 932:
    case 10001:
        return &japanese;
    case 936:
    case 10008:
    case 54936:
        return &simplified;
    case 949:
    case 10003:
    case 1361:
        return &korean;
    case 950:
    case 10002:
        return &traditional;
    default:
        return nullptr;
    }
}

} // namespace

const CodePage& codePage(int number) {
    const std::vector<CodePage>& pages = singlePages();
    const auto find = [&pages](int wanted) {
        return std::find_if(pages.begin(), pages.end(), [wanted](const CodePage& p) { return p.number == wanted; });
    };
    if (const auto it = find(number); it != pages.end())
        return *it;
    if (const CodePage* page = doublePage(number))
        return *page;
    return *find(ansiPage);
}

int codePageOfCharset(int charset) {
    struct Pair {
        int charset;
        int page;
    };
    static constexpr Pair pairs[] = {
        {0, ansiPage}, {2, symbolPage}, {77, 10000}, {78, 932},   {79, 949},   {80, 936},   {81, 950},
        {83, 10006},   {88, 10029},     {89, 10007}, {128, 932},  {129, 949},  {130, 1361}, {134, 936},
        {136, 950},    {161, 1253},     {162, 1254}, {163, 1258}, {177, 1255}, {178, 1256}, {186, 1257},
        {204, 1251},   {222, 874},      {238, 1250}, {254, 437},  {255, 850},
    };
    for (const Pair& p : pairs) {
        if (p.charset == charset)
            return p.page;
    }
    return documentPage;
}

} // namespace velm::rtf
