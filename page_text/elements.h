#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "page_text/name_table.h"

namespace page_text {

/// How an element fits into the text around it.
enum class Display : std::uint8_t {
    kInline,    ///< Part of the running text.
    kBreak,     ///< Ends a line.
    kBox,       ///< A box in the line: blanks at its inner edges are dropped, outer ones stay.
    kReplaced,  ///< A box in the line that does not show its content.
    kBlock,
    kParagraph,  ///< A block with an empty line around it.
    kFold,       ///< A block that shows only its title.
    kTable,
    kRowGroup,
    kRow,
    kCell,
    kNone,  ///< Never shown.
};

/// Further properties of an element.
enum ElementTrait : std::uint8_t {
    kVoid = 1 << 0,         ///< Has no content, or its content counts as outside.
    kRawText = 1 << 1,      ///< Contains no markup up to its end tag.
    kKeepsSpaces = 1 << 2,  ///< White space in it is shown as written.
    kInParagraph = 1 << 3,  ///< A block that does not end the paragraph around it.
};

struct Element {
    std::string_view name;
    Display display = Display::kInline;
    std::uint8_t traits = 0;
};

namespace elements {
/// The elements that need special treatment, sorted by name.
inline constexpr Element kAll[] = {
    {"address", Display::kBlock},
    {"area", Display::kNone, kVoid},
    {"article", Display::kBlock},
    {"aside", Display::kBlock},
    {"audio", Display::kReplaced},
    {"blockquote", Display::kBlock},
    {"body", Display::kInline, kVoid},
    {"br", Display::kBreak, kVoid},
    {"button", Display::kBox},
    {"canvas", Display::kReplaced},
    {"caption", Display::kBlock},
    {"center", Display::kBlock},
    {"col", Display::kNone, kVoid},
    {"datalist", Display::kNone},
    {"dd", Display::kBlock},
    {"details", Display::kFold},
    {"dialog", Display::kNone},
    {"dir", Display::kBlock},
    {"div", Display::kBlock},
    {"dl", Display::kBlock},
    {"dt", Display::kBlock},
    {"embed", Display::kReplaced, kVoid},
    {"fieldset", Display::kBlock},
    {"figcaption", Display::kBlock},
    {"figure", Display::kBlock},
    {"footer", Display::kBlock},
    {"form", Display::kBlock},
    {"h1", Display::kBlock},
    {"head", Display::kInline, kVoid},
    {"header", Display::kBlock},
    {"hgroup", Display::kBlock},
    {"hr", Display::kBlock, kVoid},
    {"html", Display::kInline, kVoid},
    {"iframe", Display::kReplaced, kRawText},
    {"img", Display::kReplaced, kVoid},
    {"input", Display::kReplaced, kVoid},
    {"legend", Display::kBlock},
    {"li", Display::kBlock},
    {"link", Display::kNone, kVoid},
    {"listing", Display::kBlock, kKeepsSpaces},
    {"main", Display::kBlock},
    {"menu", Display::kBlock},
    {"meta", Display::kNone, kVoid},
    {"meter", Display::kReplaced},
    {"nav", Display::kBlock},
    {"noembed", Display::kNone, kRawText},
    {"noframes", Display::kNone, kRawText},
    {"noscript", Display::kNone, kRawText},
    {"ol", Display::kBlock},
    {"option", Display::kBlock, kInParagraph},
    {"p", Display::kParagraph},
    {"plaintext", Display::kBlock, kRawText | kKeepsSpaces},
    {"pre", Display::kBlock, kKeepsSpaces},
    {"progress", Display::kReplaced},
    {"rp", Display::kNone},
    {"script", Display::kNone, kRawText},
    {"search", Display::kBlock},
    {"section", Display::kBlock},
    {"select", Display::kBox},
    {"source", Display::kNone, kVoid},
    {"style", Display::kNone, kRawText},
    {"summary", Display::kBlock},
    {"svg", Display::kBox},
    {"table", Display::kTable},
    {"tbody", Display::kRowGroup},
    {"td", Display::kCell},
    {"template", Display::kNone, kRawText},
    {"text", Display::kBlock, kInParagraph},
    {"textarea", Display::kReplaced, kRawText},
    {"tfoot", Display::kRowGroup},
    {"th", Display::kCell},
    {"thead", Display::kRowGroup},
    {"title", Display::kNone, kRawText},
    {"tr", Display::kRow},
    {"ul", Display::kBlock},
    {"video", Display::kReplaced},
    {"wbr", Display::kNone, kVoid},
    {"xmp", Display::kBlock, kRawText | kKeepsSpaces},
};
}  // namespace elements

/// An element's index in the table. All elements outside it share one number.
using ElementId = std::uint8_t;
inline constexpr std::size_t kElementCount = std::size(elements::kAll);
inline constexpr ElementId kOtherElement = static_cast<ElementId>(kElementCount);
static_assert(kElementCount < 256);

inline constexpr NameTable<Element> kElementsByName(elements::kAll);

constexpr ElementId FindElement(std::string_view lower_case_name) {
    return static_cast<ElementId>(kElementsByName.Find(lower_case_name).value_or(kOtherElement));
}

/// The number of an element named in the code. A name outside the table does not compile.
consteval ElementId Id(std::string_view lower_case_name) {
    const ElementId id = FindElement(lower_case_name);
    if (id == kOtherElement) throw "no such element";
    return id;
}

/// The table's row for this number.
constexpr Element ElementOf(ElementId id) {
    return id == kOtherElement ? Element{} : elements::kAll[id];
}

constexpr bool Has(ElementId id, ElementTrait trait) {
    return (ElementOf(id).traits & trait) != 0;
}

static_assert(std::is_sorted(std::begin(elements::kAll), std::end(elements::kAll),
                             [](const Element& a, const Element& b) { return a.name < b.name; }));

}  // namespace page_text
