#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace page_text {

/// How an element stands in the text around it.
enum class Display : std::uint8_t {
    kInline,     ///< Its text runs on with the text around it.
    kInlineBox,  ///< A box in the line: blanks at its inner edges vanish, those outside stay.
    kReplaced,   ///< A box in the line that shows something else than its content.
    kBlock,
    kParagraph,  ///< A block with an empty line around it.
    kTable,
    kRowGroup,
    kRow,
    kCell,
    kNone,  ///< Never shown.
};

/// What else the page's structure needs to know of an element.
enum ElementTrait : std::uint16_t {
    kVoid = 1 << 0,            ///< Has no end tag and no content.
    kRawText = 1 << 1,         ///< Holds no markup up to its end tag.
    kEndsParagraph = 1 << 2,   ///< Its start tag closes an open paragraph.
    kEndsImplicitly = 1 << 3,  ///< May be left open: closed with what is around it.
    kSpecial = 1 << 4,         ///< An end tag of an inline element does not reach through it.
    kScope = 1 << 5,           ///< No end tag of a block reaches out of it.
    kKeepsSpaces = 1 << 6,     ///< White space in it is shown as it is.
    kFloats = 1 << 7,          ///< align="left" or "right" takes it out of the line.
    kBlockInFormula = 1 << 8,  ///< Stands by itself within a formula.
};

struct Element {
    std::string_view name;
    Display display = Display::kInline;
    std::uint16_t traits = 0;
};

namespace elements {
constexpr std::uint16_t kBlockTraits = kEndsParagraph | kSpecial;
constexpr std::uint16_t kSectionTraits = kSpecial | kEndsImplicitly;

/// The elements that are more than a piece of running text, by name.
inline constexpr Element kAll[] = {
    {"address", Display::kBlock, kBlockTraits},
    {"annotation", Display::kNone},
    {"annotation-xml", Display::kNone},
    {"applet", Display::kInlineBox, kSpecial | kScope | kFloats},
    {"area", Display::kNone, kVoid},
    {"article", Display::kBlock, kBlockTraits},
    {"aside", Display::kBlock, kBlockTraits},
    {"audio", Display::kReplaced},
    {"base", Display::kNone, kVoid},
    {"basefont", Display::kNone, kVoid},
    {"bgsound", Display::kNone, kVoid},
    {"blockquote", Display::kBlock, kBlockTraits},
    {"body", Display::kInline},
    {"br", Display::kInline, kVoid},
    {"button", Display::kInlineBox, kSpecial},
    {"canvas", Display::kReplaced},
    {"caption", Display::kBlock, kSpecial | kScope},
    {"center", Display::kBlock, kBlockTraits},
    {"col", Display::kNone, kVoid},
    {"colgroup", Display::kNone, kVoid},
    {"datalist", Display::kNone},
    {"dd", Display::kBlock, kBlockTraits | kEndsImplicitly},
    {"details", Display::kBlock, kBlockTraits},
    {"dialog", Display::kBlock, kBlockTraits},
    {"dir", Display::kBlock, kBlockTraits},
    {"div", Display::kBlock, kBlockTraits},
    {"dl", Display::kBlock, kBlockTraits},
    {"dt", Display::kBlock, kBlockTraits | kEndsImplicitly},
    {"embed", Display::kReplaced, kVoid | kFloats},
    {"fieldset", Display::kBlock, kBlockTraits},
    {"figcaption", Display::kBlock, kBlockTraits},
    {"figure", Display::kBlock, kBlockTraits},
    {"footer", Display::kBlock, kBlockTraits},
    {"foreignobject", Display::kBlock, kSpecial | kScope},
    {"form", Display::kBlock, kBlockTraits},
    {"frame", Display::kNone, kVoid},
    {"frameset", Display::kNone, kVoid},
    {"h1", Display::kBlock, kBlockTraits},
    {"h2", Display::kBlock, kBlockTraits},
    {"h3", Display::kBlock, kBlockTraits},
    {"h4", Display::kBlock, kBlockTraits},
    {"h5", Display::kBlock, kBlockTraits},
    {"h6", Display::kBlock, kBlockTraits},
    {"head", Display::kInline, kVoid},
    {"header", Display::kBlock, kBlockTraits},
    {"hgroup", Display::kBlock, kBlockTraits},
    {"hr", Display::kBlock, kVoid | kEndsParagraph},
    {"html", Display::kInline},
    {"iframe", Display::kReplaced, kRawText | kFloats},
    {"image", Display::kReplaced, kVoid | kFloats},
    {"img", Display::kReplaced, kVoid | kFloats},
    {"input", Display::kReplaced, kVoid | kFloats},
    {"keygen", Display::kNone, kVoid},
    {"legend", Display::kBlock},
    {"li", Display::kBlock, kBlockTraits | kEndsImplicitly},
    {"link", Display::kNone, kVoid},
    {"listing", Display::kBlock, kBlockTraits | kKeepsSpaces},
    {"main", Display::kBlock, kBlockTraits},
    {"marquee", Display::kInlineBox, kSpecial | kScope},
    {"math", Display::kInlineBox},
    {"menu", Display::kBlock, kBlockTraits},
    {"meta", Display::kNone, kVoid},
    {"meter", Display::kReplaced},
    {"mfrac", Display::kInline, kBlockInFormula},
    {"mi", Display::kInline, kBlockInFormula},
    {"mn", Display::kInline, kBlockInFormula},
    {"mo", Display::kInline, kBlockInFormula},
    {"mrow", Display::kInline, kBlockInFormula},
    {"ms", Display::kInline, kBlockInFormula},
    {"mtext", Display::kInline, kBlockInFormula},
    {"nav", Display::kBlock, kBlockTraits},
    {"noembed", Display::kNone, kRawText},
    {"noframes", Display::kNone, kRawText},
    {"noscript", Display::kNone, kRawText},
    {"object", Display::kInlineBox, kSpecial | kScope | kFloats},
    {"ol", Display::kBlock, kBlockTraits},
    {"optgroup", Display::kBlock, kEndsImplicitly},
    {"option", Display::kBlock, kEndsImplicitly},
    {"p", Display::kParagraph, kBlockTraits | kEndsImplicitly},
    {"param", Display::kNone, kVoid},
    {"plaintext", Display::kBlock, kBlockTraits | kRawText | kKeepsSpaces},
    {"pre", Display::kBlock, kBlockTraits | kKeepsSpaces},
    {"progress", Display::kReplaced},
    {"rp", Display::kNone, kEndsImplicitly},
    {"rt", Display::kInline, kEndsImplicitly},
    {"ruby", Display::kInline},
    {"script", Display::kNone, kRawText},
    {"search", Display::kBlock, kBlockTraits},
    {"section", Display::kBlock, kBlockTraits},
    {"select", Display::kInlineBox, kSpecial},
    {"source", Display::kNone, kVoid},
    {"style", Display::kNone, kRawText},
    {"summary", Display::kBlock, kBlockTraits},
    {"svg", Display::kInlineBox},
    {"table", Display::kTable, kBlockTraits | kScope},
    {"tbody", Display::kRowGroup, kSectionTraits},
    {"td", Display::kCell, kSpecial | kScope | kEndsImplicitly},
    {"template", Display::kNone, kSpecial | kScope},
    {"text", Display::kInline},
    {"textarea", Display::kReplaced, kRawText},
    {"tfoot", Display::kRowGroup, kSectionTraits},
    {"th", Display::kCell, kSpecial | kScope | kEndsImplicitly},
    {"thead", Display::kRowGroup, kSectionTraits},
    {"title", Display::kNone, kRawText},
    {"tr", Display::kRow, kSectionTraits},
    {"track", Display::kNone, kVoid},
    {"ul", Display::kBlock, kBlockTraits},
    {"video", Display::kReplaced},
    {"wbr", Display::kNone, kVoid},
    {"xmp", Display::kBlock, kBlockTraits | kRawText | kKeepsSpaces},
};
}  // namespace elements

/// An element's place in the table; elements that are not in it share one number.
using ElementId = std::uint8_t;
inline constexpr std::size_t kElementCount = std::size(elements::kAll);
inline constexpr ElementId kOtherElement = static_cast<ElementId>(kElementCount);
static_assert(kElementCount < 256);

constexpr ElementId FindElement(std::string_view lower_case_name) {
    const auto by_name = [](const Element& element, std::string_view name) {
        return element.name < name;
    };
    const Element* found = std::lower_bound(std::begin(elements::kAll), std::end(elements::kAll),
                                            lower_case_name, by_name);
    if (found == std::end(elements::kAll) || found->name != lower_case_name) return kOtherElement;
    return static_cast<ElementId>(found - std::begin(elements::kAll));
}

/// The number of an element that the code names; a name that is not in the table does not compile.
consteval ElementId Id(std::string_view lower_case_name) {
    const ElementId id = FindElement(lower_case_name);
    if (id == kOtherElement) throw "no such element";
    return id;
}

/// What is known of the element with this number.
constexpr Element ElementOf(ElementId id) {
    return id == kOtherElement ? Element{} : elements::kAll[id];
}

static_assert(std::is_sorted(std::begin(elements::kAll), std::end(elements::kAll),
                             [](const Element& a, const Element& b) { return a.name < b.name; }));

}  // namespace page_text
