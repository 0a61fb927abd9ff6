#include "page_text/charset.h"

#include <algorithm>

#include "page_text/ascii.h"
#include "page_text/attributes.h"
#include "page_text/system_encodings.h"
#include "page_text/tokenizer.h"
#include "page_text/utf8.h"

namespace page_text {

namespace {

// Declarations come early in a page; browsers do not look much further either.
constexpr std::size_t kDeclarationReach = 4096;

constexpr std::string_view kUtf8 = "utf-8";
constexpr std::string_view kWestern = "windows-1252";

struct Label {
    std::string_view label;
    std::string_view meaning;
};

// Labels that some systems do not know, or whose pages are really written in a superset. Browsers
// map them the same way.
constexpr Label kLabels[] = {
    {"ascii", kWestern},
    {"big5", "big5-hkscs"},
    {"euc-kr", "cp949"},
    {"gb2312", "gb18030"},
    {"gbk", "gb18030"},
    {"iso-8859-1", kWestern},
    {"iso-8859-11", "windows-874"},
    {"iso-8859-8-i", "iso-8859-8"},
    {"iso-8859-9", "windows-1254"},
    {"iso8859-1", kWestern},
    {"ks-c-5601-1987", "cp949"},
    {"latin1", kWestern},
    {"mac-roman", "macintosh"},
    {"shift-jis", "cp932"},
    {"sjis", "cp932"},
    {"tis-620", "windows-874"},
    {"us-ascii", kWestern},
    {"utf8", kUtf8},
};

/// The label in "text/html; charset=LABEL"; "" if there is none.
std::string_view LabelInContentType(std::string_view content) {
    static constexpr std::string_view kWord = "charset=";
    for (std::size_t at = 0; at + kWord.size() < content.size(); ++at) {
        if (EqualsIgnoringCase(content.substr(at, kWord.size()), kWord)) {
            const std::string_view label = content.substr(at + kWord.size());
            return label.substr(0, label.find(';'));
        }
    }
    return {};
}

/// The label that a meta tag with these attributes declares; "" if it declares none.
std::string_view LabelInMeta(std::string_view attributes) {
    std::string_view label;
    for (AttributeReader reader(attributes); reader.Next();) {
        if (EqualsIgnoringCase(reader.Name(), "charset")) return reader.Value();
        if (EqualsIgnoringCase(reader.Name(), "content")) {
            label = LabelInContentType(reader.Value());
        }
    }
    return label;
}

/// The system converter's name for the encoding that a page means by `label`.
std::string MeantCharset(std::string_view label) {
    std::string name(TrimMarkupSpace(label));
    std::transform(name.begin(), name.end(), name.begin(),
                   [](char c) { return c == '_' ? '-' : LowerLetter(c); });
    if (name.starts_with("x-")) name.erase(0, 2);
    for (const Label& row : kLabels) {
        if (row.label == name) return std::string(row.meaning);
    }
    return name;
}

/// Whether `charset` may be passed to the system's converter. It knows hundreds of encodings, and
/// names may contain paths and options, so pages only get those that browsers support.
bool IsForPages(std::string_view charset) {
    static constexpr std::string_view kFamilies[] = {"big5",   "cp",          "euc-",      "gb",
                                                     "ibm866", "iso-2022-jp", "iso-8859-", "koi8-",
                                                     "latin",  "mac",         "windows-"};
    const auto begins = [charset](std::string_view family) { return charset.starts_with(family); };
    const auto is_plain = [](char c) { return IsLetter(c) || IsDigit(c) || c == '-'; };
    return std::any_of(std::begin(kFamilies), std::end(kFamilies), begins) &&
           std::all_of(charset.begin(), charset.end(), is_plain);
}

}  // namespace

std::string_view DeclaredCharset(std::string_view page) {
    Tokenizer tokenizer(page.substr(0, kDeclarationReach));
    for (Tokenizer::Kind kind; (kind = tokenizer.Next()) != Tokenizer::Kind::kEnd;) {
        if (kind != Tokenizer::Kind::kStartTag) continue;
        if (!EqualsIgnoringCase(tokenizer.LastTag().name, "meta")) continue;
        const std::string_view label = LabelInMeta(tokenizer.LastTag().attributes);
        if (!label.empty()) return label;
    }
    return {};
}

std::optional<std::string> DecodeFile(std::string_view bytes, std::string_view declared) {
    if (bytes.starts_with("\xFE\xFF")) return FromUtf16(bytes.substr(2), /*big_endian=*/true);
    if (bytes.starts_with("\xFF\xFE")) return FromUtf16(bytes.substr(2), /*big_endian=*/false);
    if (bytes.starts_with("\xEF\xBB\xBF")) return RepairedUtf8(bytes.substr(3));
    const std::string charset = MeantCharset(declared);
    if (charset == kWestern) return FromWindows1252(bytes);
    if (IsForPages(charset)) {
        if (auto utf8 = ConvertToUtf8(bytes, charset)) return utf8;
    }
    if (ValidUtf8Length(bytes) == bytes.size()) return std::nullopt;
    return charset == kUtf8 ? RepairedUtf8(bytes) : FromWindows1252(bytes);
}

}  // namespace page_text
