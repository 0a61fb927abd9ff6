#include "page_text/page_reader.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "page_text/ascii.h"
#include "page_text/attributes.h"
#include "page_text/character_references.h"
#include "page_text/quirks.h"

namespace page_text {

namespace {

/// A few milliseconds' work.
constexpr std::size_t kBytesBetweenYields = 256 * 1024;

ElementId ElementNamed(std::string_view name) {
    std::array<char, 16> lower;
    if (name.size() > lower.size()) return kOtherElement;
    std::transform(name.begin(), name.end(), lower.begin(), LowerLetter);
    const std::string_view found(lower.data(), name.size());
    // The end tag of any heading closes a heading of any level.
    const bool is_heading =
        found.size() == 2 && found[0] == 'h' && found[1] >= '1' && found[1] <= '6';
    return is_heading ? Id("h1") : FindElement(found);
}

/// Removes the text up to and including the next `mark` from `rest`. Returns it trimmed and without
/// the mark.
std::string_view TakeUpTo(char mark, std::string_view& rest) {
    const std::size_t length = std::min(rest.find(mark), rest.size());
    const std::string_view taken = rest.substr(0, length);
    rest.remove_prefix(std::min(length + 1, rest.size()));
    return TrimMarkupSpace(taken);
}

/// How an element displayed as `display` is displayed with these style declarations.
Display StyledDisplay(Display display, std::string_view declarations) {
    while (!declarations.empty()) {
        std::string_view value = TakeUpTo(';', declarations);
        if (!EqualsIgnoringCase(TakeUpTo(':', value), "display")) continue;
        value = TakeUpTo('!', value);
        if (EqualsIgnoringCase(value, "none")) return Display::kNone;
        if (EqualsIgnoringCase(value, "block") && display == Display::kInline)
            display = Display::kBlock;
    }
    return display;
}

/// How the element started by `tag` is displayed, judging by its name and attributes.
Display DisplayOf(ElementId id, const Tag& tag) {
    Display display = ElementOf(id).display;
    std::string_view style;
    for (AttributeReader reader(tag.attributes); reader.Next();) {
        const std::string_view name = reader.Name();
        if (EqualsIgnoringCase(name, "style")) {
            style = reader.Value();
        } else if (EqualsIgnoringCase(name, "hidden")) {
            display = Display::kNone;
        } else if (EqualsIgnoringCase(name, "open") && id == Id("details")) {
            display = Display::kBlock;
        } else if (EqualsIgnoringCase(name, "type") && id == Id("input")) {
            if (EqualsIgnoringCase(reader.Value(), "hidden")) display = Display::kNone;
        }
    }
    return StyledDisplay(display, style);
}

}  // namespace

PageReader::PageReader(std::string_view page)
    : tokenizer_(page), assembler_(page.size()), structure_(assembler_, IsInQuirksMode(page)) {}

std::string PageReader::Read(const std::function<void()>& yield) {
    std::size_t next_yield = kBytesBetweenYields;
    for (Tokenizer::Kind kind; (kind = tokenizer_.Next()) != Tokenizer::Kind::kEnd;) {
        if (kind == Tokenizer::Kind::kText) {
            OnText(tokenizer_.Text());
        } else if (kind == Tokenizer::Kind::kStartTag) {
            OnStartTag(tokenizer_.LastTag());
        } else if (kind == Tokenizer::Kind::kEndTag) {
            structure_.Close(ElementNamed(tokenizer_.LastTag().name));
        }
        if (yield && tokenizer_.Position() >= next_yield) {
            next_yield = tokenizer_.Position() + kBytesBetweenYields;
            yield();
        }
    }
    return assembler_.Take();
}

void PageReader::OnStartTag(const Tag& tag) {
    const ElementId id = ElementNamed(tag.name);
    structure_.Open(id, DisplayOf(id, tag));
    if (id == Id("pre") || id == Id("listing")) tokenizer_.SkipLineEnd();
    if (Has(id, kRawText)) {
        const std::string_view content = tokenizer_.TakeRawText(ElementOf(id).name);
        if (structure_.State().shown) AppendPiece(content);
        structure_.Close(id);
    }
}

void PageReader::OnText(std::string_view text) {
    if (!structure_.State().shown) return;
    if (!structure_.BetweenTableParts()) return AppendText(text);
    // Between the parts of a table, white space is ignored, and other text belongs to no cell.
    if (std::all_of(text.begin(), text.end(), IsMarkupSpace)) return;
    assembler_.BlockEdge(1);
    AppendText(text);
    assembler_.BlockEdge(1);
}

/// Drops NULs.
void PageReader::AppendText(std::string_view text) {
    for (std::size_t end; (end = text.find('\0')) != text.npos; text.remove_prefix(end + 1)) {
        AppendReferences(text.substr(0, end));
    }
    AppendReferences(text);
}

/// Appends text with its character references decoded.
void PageReader::AppendReferences(std::string_view text) {
    std::string character;
    for (std::size_t end; (end = text.find('&')) != text.npos;) {
        AppendPiece(text.substr(0, end));
        text.remove_prefix(end);
        character.clear();
        std::size_t length = ReadCharacterReference(text, character);
        if (length == 0) {
            character += '&';
            length = 1;
        }
        AppendPiece(character);
        text.remove_prefix(length);
    }
    AppendPiece(text);
}

void PageReader::AppendPiece(std::string_view piece) {
    structure_.State().keeps_spaces ? assembler_.KeptText(piece) : assembler_.Text(piece);
}

}  // namespace page_text
