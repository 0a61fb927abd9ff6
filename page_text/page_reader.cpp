#include "page_text/page_reader.h"

#include <algorithm>
#include <array>

#include "page_text/ascii.h"
#include "page_text/character_references.h"
#include "page_text/shown_attributes.h"

namespace page_text {

namespace {

/// Some milliseconds' work.
constexpr std::size_t kBytesBetweenYields = 256 * 1024;

ElementId ElementNamed(std::string_view name) {
    std::array<char, 16> lower;
    if (name.size() > lower.size()) return kOtherElement;
    std::transform(name.begin(), name.end(), lower.begin(), LowerLetter);
    return FindElement({lower.data(), name.size()});
}

bool IsSpace(std::string_view raw) {
    return std::all_of(raw.begin(), raw.end(), IsMarkupSpace);
}

bool Has(ElementId id, std::uint16_t trait) {
    return (ElementOf(id).traits & trait) != 0;
}

}  // namespace

PageReader::PageReader(std::string_view page, Decoder& decoder)
    : tokenizer_(page), decoder_(decoder), assembler_(page.size()), structure_(assembler_) {}

std::string PageReader::Read(const std::function<void()>& yield) {
    std::size_t next_yield = kBytesBetweenYields;
    for (Tokenizer::Kind kind;
         !is_frame_set_ && (kind = tokenizer_.Next()) != Tokenizer::Kind::kEnd;) {
        if (kind == Tokenizer::Kind::kText) {
            OnText(tokenizer_.Text());
        } else if (tokenizer_.LastTag().is_end) {
            OnEndTag(ElementNamed(tokenizer_.LastTag().name));
        } else {
            OnStartTag(tokenizer_.LastTag());
        }
        tokenizer_.SetCharacterData(structure_.State().foreign);
        if (yield && tokenizer_.Position() >= next_yield) {
            next_yield = tokenizer_.Position() + kBytesBetweenYields;
            yield();
        }
    }
    return assembler_.Take();
}

// Text ------------------------------------------------------------------------------------------

void PageReader::OnText(std::string_view raw) {
    if (!body_has_begun_) body_has_begun_ = !IsSpace(raw);
    if (drop_line_end_) {
        if (raw.starts_with('\r')) raw.remove_prefix(1);
        if (raw.starts_with('\n')) raw.remove_prefix(1);
        drop_line_end_ = false;
    }
    if (body_is_hidden_) return AppendTextWithReferences(raw);
    if (!structure_.State().Shown()) return;
    if (!structure_.BetweenTableParts()) return AppendTextWithReferences(raw);
    // Between the parts of a table white space is nothing, and other text no part of any cell.
    if (IsSpace(raw)) return;
    assembler_.BlockEdge(1);
    AppendTextWithReferences(raw);
    assembler_.BlockEdge(1);
}

void PageReader::AppendTextWithReferences(std::string_view raw) {
    const auto stops = [](char c) { return c == '&' || c == '\0'; };  // A NUL is nothing.
    while (!raw.empty()) {
        const auto stop =
            static_cast<std::size_t>(std::find_if(raw.begin(), raw.end(), stops) - raw.begin());
        AppendText(raw.substr(0, stop));
        raw.remove_prefix(stop);
        if (raw.empty()) return;
        decoded_.clear();
        std::size_t length = raw[0] == '&' ? ReadCharacterReference(raw, decoded_) : 1;
        if (length == 0) {
            decoded_ += '&';
            length = 1;
        }
        assembler_.Text(decoded_, body_is_hidden_ ? Spaces::kKeep : structure_.State().spaces);
        raw.remove_prefix(length);
    }
}

void PageReader::AppendText(std::string_view raw) {
    const Spaces spaces = body_is_hidden_ ? Spaces::kKeep : structure_.State().spaces;
    while (!raw.empty()) {
        decoded_.clear();
        raw.remove_prefix(decoder_.DecodeSome(raw, decoded_));
        assembler_.Text(decoded_, spaces);
    }
}

// Tags ------------------------------------------------------------------------------------------

void PageReader::OnStartTag(const Tag& tag) {
    const ElementId id = ElementNamed(tag.name);
    drop_line_end_ = false;
    if (id == Id("html") || id == Id("body")) return OnPageTag(tag);
    if (id == Id("frameset") && !body_has_begun_) {
        is_frame_set_ = true;
    } else if (body_is_hidden_) {
        if (Has(id, kRawText)) AppendText(TakeContent(id));
    } else if (structure_.PrepareFor(id)) {
        OnElement(ReadElement(id, tag), tag.self_closing);
    }
}

/// The tags <html> and <body> may stand anywhere, and often; each adds its style to the page's.
void PageReader::OnPageTag(const Tag& tag) {
    if (EqualsIgnoringCase(tag.name, "body")) body_has_begun_ = true;
    const ShownAttributes attributes = ReadAttributes(tag);
    if (StyledDisplay(OwnDisplay(kOtherElement, attributes), attributes.style) == Display::kNone) {
        body_is_hidden_ = true;
    }
    ApplyStyle(attributes.style, structure_.PageState());
}

void PageReader::OnElement(const OpenElement& element, bool self_closing) {
    const ElementId id = element.id;
    if (id == Id("br")) {
        if (element.shown) assembler_.LineBreak();
    } else if (Has(id, kVoid) || (self_closing && structure_.State().foreign)) {
        structure_.OpenAndClose(element.display, element.shown);
    } else {
        // Drawings and formulas have elements of such names that hold markup like any other.
        const bool has_raw_text = Has(id, kRawText) && !structure_.State().foreign;
        structure_.Open(element);
        if (has_raw_text) {
            const std::string_view content = TakeContent(id);
            if (element.content.Shown()) AppendText(content);
            structure_.Close(id);
        }
        drop_line_end_ = id == Id("pre") || id == Id("listing");
    }
}

/// What stands up to the end tag of an element that holds raw text.
std::string_view PageReader::TakeContent(ElementId id) {
    if (id == Id("plaintext")) return tokenizer_.TakeRest();
    if (id == Id("script")) return tokenizer_.TakeScript();
    return tokenizer_.TakeRawText(ElementOf(id).name);
}

void PageReader::OnEndTag(ElementId id) {
    drop_line_end_ = false;
    if (body_is_hidden_) return;
    if (id == Id("br")) {
        if (structure_.State().Shown()) assembler_.LineBreak();
    } else {
        structure_.Close(id);
    }
}

OpenElement PageReader::ReadElement(ElementId id, const Tag& tag) {
    const ShownAttributes attributes = ReadAttributes(tag);
    Display own = OwnDisplay(id, attributes);
    if (id == Id("text") && structure_.Inside(Id("svg"))) own = Display::kBlock;
    if (Has(id, kBlockInFormula) && structure_.Inside(Id("math"))) own = Display::kBlock;
    const Display display = StyledDisplay(own, attributes.style);

    TextState state = structure_.State();
    if (IsShownPart(id)) state.unshown_in = kOtherElement;
    if (display == Display::kNone) state.displayed = false;
    if (Has(id, kKeepsSpaces)) state.spaces = Spaces::kKeep;
    ApplyStyle(attributes.style, state);
    const bool shown = state.Shown();

    if (own == Display::kReplaced) state.displayed = false;
    if (id == Id("foreignobject")) state.foreign = false;
    if (id == Id("svg") || id == Id("math")) state.foreign = true;
    const bool shows_parts =
        id == Id("svg") || id == Id("select") || (id == Id("details") && !attributes.open);
    if (shows_parts && state.Shown()) state.unshown_in = id;
    return {id, display, shown, state};
}

/// True for what a list box, a drawing or a closed fold shows of its content.
bool PageReader::IsShownPart(ElementId id) {
    const ElementId whole = structure_.State().unshown_in;
    if (whole == Id("select")) return id == Id("option");
    if (whole == Id("svg")) return id == Id("text") || id == Id("foreignobject");
    return whole == Id("details") && id == Id("summary") && structure_.TakeFoldTitle();
}

}  // namespace page_text
