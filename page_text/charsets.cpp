#include "page_text/charsets.h"

#include <algorithm>
#include <string>

#include "page_text/ascii.h"

namespace page_text {

namespace {

using Family = Charset::Family;

struct Label {
    std::string_view label;
    Charset charset;
};

// Many labels mean the superset that Windows uses, as the pages that carry them do. A page in
// UTF-16 that says so in ASCII letters is none.
constexpr Charset kUtf8{Family::kUtf8};
constexpr Charset kWestern{Family::kWindows1252};
constexpr Charset kCentralEuropean{Family::kAsciiBased, "CP1250", 1250};
constexpr Charset kCyrillic{Family::kAsciiBased, "CP1251", 1251};
constexpr Charset kGreek{Family::kAsciiBased, "ISO-8859-7", 28597};
constexpr Charset kTurkish{Family::kAsciiBased, "CP1254", 1254};
constexpr Charset kLatin2{Family::kAsciiBased, "ISO-8859-2", 28592};
constexpr Charset kLatin9{Family::kAsciiBased, "ISO-8859-15", 28605};
constexpr Charset kThai{Family::kAsciiBased, "CP874", 874};
constexpr Charset kJapaneseShift{Family::kAsciiBased, "CP932", 932};
constexpr Charset kJapaneseEuc{Family::kAsciiBased, "EUC-JP", 20932};
constexpr Charset kChinese{Family::kAsciiBased, "GB18030", 54936};
constexpr Charset kTaiwanese{Family::kAsciiBased, "BIG5-HKSCS", 950};
constexpr Charset kKorean{Family::kAsciiBased, "CP949", 949};

constexpr Label kLabels[] = {
    {"ascii", kWestern},
    {"big5", kTaiwanese},
    {"big5-hkscs", kTaiwanese},
    {"chinese", kChinese},
    {"cn-big5", kTaiwanese},
    {"cp1250", kCentralEuropean},
    {"cp1251", kCyrillic},
    {"cp1252", kWestern},
    {"cp1254", kTurkish},
    {"cp866", {Family::kAsciiBased, "CP866", 866}},
    {"euc-jp", kJapaneseEuc},
    {"euc-kr", kKorean},
    {"gb18030", kChinese},
    {"gb2312", kChinese},
    {"gb_2312-80", kChinese},
    {"gbk", kChinese},
    {"greek", kGreek},
    {"ibm866", {Family::kAsciiBased, "CP866", 866}},
    {"iso-2022-jp", {Family::kEscaped, "ISO-2022-JP", 50220}},
    {"iso-8859-1", kWestern},
    {"iso-8859-10", {Family::kAsciiBased, "ISO-8859-10", 28600}},
    {"iso-8859-11", kThai},
    {"iso-8859-13", {Family::kAsciiBased, "ISO-8859-13", 28603}},
    {"iso-8859-14", {Family::kAsciiBased, "ISO-8859-14", 28604}},
    {"iso-8859-15", kLatin9},
    {"iso-8859-16", {Family::kAsciiBased, "ISO-8859-16", 28606}},
    {"iso-8859-2", kLatin2},
    {"iso-8859-3", {Family::kAsciiBased, "ISO-8859-3", 28593}},
    {"iso-8859-4", {Family::kAsciiBased, "ISO-8859-4", 28594}},
    {"iso-8859-5", {Family::kAsciiBased, "ISO-8859-5", 28595}},
    {"iso-8859-6", {Family::kAsciiBased, "ISO-8859-6", 28596}},
    {"iso-8859-7", kGreek},
    {"iso-8859-8", {Family::kAsciiBased, "ISO-8859-8", 28598}},
    {"iso-8859-8-i", {Family::kAsciiBased, "ISO-8859-8", 28598}},
    {"iso-8859-9", kTurkish},
    {"iso8859-1", kWestern},
    {"iso8859-15", kLatin9},
    {"iso8859-2", kLatin2},
    {"iso8859-9", kTurkish},
    {"iso_8859-1", kWestern},
    {"iso_8859-15", kLatin9},
    {"iso_8859-2", kLatin2},
    {"koi8-r", {Family::kAsciiBased, "KOI8-R", 20866}},
    {"koi8-u", {Family::kAsciiBased, "KOI8-U", 21866}},
    {"korean", kKorean},
    {"ks_c_5601-1987", kKorean},
    {"ksc5601", kKorean},
    {"l1", kWestern},
    {"latin1", kWestern},
    {"latin2", kLatin2},
    {"macintosh", {Family::kAsciiBased, "MACINTOSH", 10000}},
    {"ms_kanji", kJapaneseShift},
    {"shift-jis", kJapaneseShift},
    {"shift_jis", kJapaneseShift},
    {"sjis", kJapaneseShift},
    {"tis-620", kThai},
    {"unicode-1-1-utf-8", kUtf8},
    {"us-ascii", kWestern},
    {"utf-16", kUtf8},
    {"utf-16be", kUtf8},
    {"utf-16le", kUtf8},
    {"utf-8", kUtf8},
    {"utf8", kUtf8},
    {"windows-1250", kCentralEuropean},
    {"windows-1251", kCyrillic},
    {"windows-1252", kWestern},
    {"windows-1253", {Family::kAsciiBased, "CP1253", 1253}},
    {"windows-1254", kTurkish},
    {"windows-1255", {Family::kAsciiBased, "CP1255", 1255}},
    {"windows-1256", {Family::kAsciiBased, "CP1256", 1256}},
    {"windows-1257", {Family::kAsciiBased, "CP1257", 1257}},
    {"windows-1258", {Family::kAsciiBased, "CP1258", 1258}},
    {"windows-31j", kJapaneseShift},
    {"windows-874", kThai},
    {"windows-949", kKorean},
    {"x-cp1250", kCentralEuropean},
    {"x-cp1251", kCyrillic},
    {"x-cp1252", kWestern},
    {"x-euc-jp", kJapaneseEuc},
    {"x-gbk", kChinese},
    {"x-mac-cyrillic", {Family::kAsciiBased, "MAC-CYRILLIC", 10007}},
    {"x-mac-roman", {Family::kAsciiBased, "MACINTOSH", 10000}},
    {"x-sjis", kJapaneseShift},
};

constexpr bool ByLabel(const Label& a, const Label& b) {
    return a.label < b.label;
}
static_assert(std::is_sorted(std::begin(kLabels), std::end(kLabels), ByLabel));

}  // namespace

const Charset* FindCharset(std::string_view label) {
    constexpr std::size_t kLongestLabel = 20;
    const std::string_view trimmed = TrimMarkupSpace(label);
    if (trimmed.size() > kLongestLabel) return nullptr;
    std::string lower(trimmed);
    std::transform(lower.begin(), lower.end(), lower.begin(), LowerLetter);
    const Label* found =
        std::lower_bound(std::begin(kLabels), std::end(kLabels), Label{lower, {}}, ByLabel);
    return found != std::end(kLabels) && found->label == lower ? &found->charset : nullptr;
}

}  // namespace page_text
