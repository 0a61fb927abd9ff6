#include "page_text/inline_style.h"

#include <algorithm>

#include "page_text/ascii.h"

namespace page_text {

namespace {

/// The text up to the next `mark`, which is taken off `rest` with the mark.
std::string_view TakeUpTo(char mark, std::string_view& rest) {
    const std::size_t length = std::min(rest.find(mark), rest.size());
    const std::string_view taken = rest.substr(0, length);
    rest.remove_prefix(std::min(length + 1, rest.size()));
    return TrimMarkupSpace(taken);
}

template <typename Meaning>
struct Keyword {
    std::string_view value;
    Meaning meaning;
};

template <typename Meaning, std::size_t N>
void SetFrom(const Keyword<Meaning> (&keywords)[N], std::string_view value,
             std::optional<Meaning>& property) {
    for (const Keyword<Meaning>& keyword : keywords) {
        if (EqualsIgnoringCase(value, keyword.value)) property = keyword.meaning;
    }
}

constexpr Keyword<Display> kDisplays[] = {
    {"none", Display::kNone},
    {"block", Display::kBlock},
    {"flex", Display::kBlock},
    {"grid", Display::kBlock},
    {"list-item", Display::kBlock},
    {"table", Display::kBlock},
    {"flow-root", Display::kBlock},
    {"inline", Display::kInline},
    {"contents", Display::kInline},
    {"inline-block", Display::kInlineBox},
    {"inline-flex", Display::kInlineBox},
    {"inline-table", Display::kInlineBox},
};
constexpr Keyword<bool> kVisibilities[] = {
    {"hidden", false}, {"collapse", false}, {"visible", true}};
constexpr Keyword<Spaces> kWhiteSpaces[] = {
    {"normal", Spaces::kCollapse},   {"nowrap", Spaces::kCollapse},
    {"pre", Spaces::kKeep},          {"pre-wrap", Spaces::kKeep},
    {"break-spaces", Spaces::kKeep}, {"pre-line", Spaces::kKeepBreaks},
};

}  // namespace

InlineStyle ParseInlineStyle(std::string_view declarations) {
    InlineStyle style;
    std::optional<bool> floats, positioned;
    while (!declarations.empty()) {
        std::string_view value = TakeUpTo(';', declarations);
        const std::string_view property = TakeUpTo(':', value);
        value = TakeUpTo('!', value);
        if (EqualsIgnoringCase(property, "display")) SetFrom(kDisplays, value, style.display);
        if (EqualsIgnoringCase(property, "visibility"))
            SetFrom(kVisibilities, value, style.visible);
        if (EqualsIgnoringCase(property, "white-space")) SetFrom(kWhiteSpaces, value, style.spaces);
        if (EqualsIgnoringCase(property, "float")) {
            floats = EqualsIgnoringCase(value, "left") || EqualsIgnoringCase(value, "right");
        }
        if (EqualsIgnoringCase(property, "position")) {
            positioned =
                EqualsIgnoringCase(value, "absolute") || EqualsIgnoringCase(value, "fixed");
        }
    }
    style.out_of_line = floats.value_or(false) || positioned.value_or(false);
    return style;
}

}  // namespace page_text
