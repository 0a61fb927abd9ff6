#include "page_text/page_structure.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace page_text {

namespace {

bool IsCell(ElementId id) {
    return ElementOf(id).display == Display::kCell;
}

/// Row groups, rows, cells and captions.
bool IsTablePart(ElementId id) {
    const Display display = ElementOf(id).display;
    return display == Display::kRowGroup || display == Display::kRow || IsCell(id) ||
           id == Id("caption");
}

bool HidesContent(Display display) {
    return display == Display::kNone || display == Display::kReplaced || display == Display::kFold;
}

/// A box that is placed in the line like a letter.
bool IsBox(Display display) {
    return display == Display::kBox || display == Display::kReplaced;
}

/// The number of line ends around a block; nothing for other elements.
std::optional<int> EdgeLines(Display display) {
    switch (display) {
        case Display::kParagraph:
            return 2;
        case Display::kBlock:
        case Display::kFold:
        case Display::kTable:
            return 1;
        case Display::kRowGroup:
        case Display::kRow:
        case Display::kCell:
            return 0;
        default:
            return std::nullopt;
    }
}

}  // namespace

// Start tags ------------------------------------------------------------------------------------

void PageStructure::Open(ElementId id, Display display) {
    if (IsTablePart(id)) {
        if (open_.Innermost(Id("table")) == 0) return;  // Ignored outside a table.
        MakePlaceFor(id);
    }
    // A table between the parts of another table ends the other table.
    if (id == Id("table") && BetweenTableParts()) CloseInnermost(id);
    if (EndsParagraph(id)) CloseInnermost(Id("p"));

    // The title of a fold is visible if the fold itself is.
    const bool is_title = id == Id("summary") && open_.Top().display == Display::kFold;
    TextState content = is_title ? open_.At(open_.Depth() - 2).content : State();
    if (content.shown) OpenEdge(display);
    if (Has(id, kVoid)) {
        if (content.shown) CloseEdge(display);
        return;
    }
    if (HidesContent(display)) content.shown = false;
    if (Has(id, kKeepsSpaces)) content.keeps_spaces = true;
    // An element that does not affect the text is pushed only inside one of the same name, so that
    // their end tags can be told apart.
    const bool plain = display == Display::kInline && content == State();
    if (!plain || open_.Innermost(id) > 0) open_.Push({id, display, content});
}

/// Whether the start of `id` ends an open paragraph.
bool PageStructure::EndsParagraph(ElementId id) const {
    if (id == Id("table") && is_in_quirks_mode_) return false;
    return EdgeLines(ElementOf(id).display).value_or(0) > 0 && !Has(id, kInParagraph);
}

/// Closes the elements of the innermost table that cannot contain `part`. Opens a row for a cell if
/// there is none.
void PageStructure::MakePlaceFor(ElementId part) {
    std::size_t place = open_.Innermost(Id("table"));
    if (part == Id("tr") || IsCell(part)) {
        place = InnermostOf({Id("table"), Id("thead"), Id("tbody"), Id("tfoot")});
    }
    if (IsCell(part)) {
        if (open_.Innermost(Id("tr")) < place) Open(Id("tr"), Display::kRow);
        place = open_.Innermost(Id("tr"));
    }
    PopTo(place + 1);
}

// End tags --------------------------------------------------------------------------------------

void PageStructure::Close(ElementId id) {
    if (CloseInnermost(id)) return;
    // These two end tags take effect even without a start tag.
    if ((id == Id("p") || id == Id("br")) && State().shown) OpenEdge(ElementOf(id).display);
}

/// Closes the innermost open `id` and everything in it; false if it is not open inside the current
/// cell or table.
bool PageStructure::CloseInnermost(ElementId id) {
    std::size_t barrier = 0;
    if (IsTablePart(id)) {
        barrier = open_.Innermost(Id("table"));
    } else if (id != Id("table")) {
        barrier = InnermostOf({Id("table"), Id("caption"), Id("td"), Id("th")});
    }
    if (open_.Innermost(id) <= barrier) return false;
    PopTo(open_.Innermost(id));
    return true;
}

std::size_t PageStructure::InnermostOf(std::initializer_list<ElementId> ids) const {
    std::size_t innermost = 0;
    for (const ElementId id : ids) {
        innermost = std::max(innermost, open_.Innermost(id));
    }
    return innermost;
}

/// Closes the innermost elements until `depth` are open.
void PageStructure::PopTo(std::size_t depth) {
    while (open_.Depth() > depth) {
        const Display closed = open_.Top().display;
        open_.Pop();
        if (State().shown) CloseEdge(closed);
    }
}

// Edges -----------------------------------------------------------------------------------------

bool PageStructure::BetweenTableParts() const {
    const Display display = open_.Top().display;
    return display == Display::kTable || display == Display::kRowGroup || display == Display::kRow;
}

void PageStructure::OpenEdge(Display display) {
    if (display == Display::kBreak) assembler_.LineBreak();
    if (IsBox(display)) assembler_.OpenBox();
    if (const auto lines = EdgeLines(display)) assembler_.BlockEdge(*lines);
    if (display == Display::kRow && MarkPart(Id("table"))) assembler_.RowBreak();
    if (display == Display::kCell && MarkPart(Id("tr"))) assembler_.Tab();
}

void PageStructure::CloseEdge(Display display) {
    if (IsBox(display)) assembler_.CloseBox();
    if (const auto lines = EdgeLines(display)) assembler_.BlockEdge(*lines);
}

/// Records that the innermost `whole`, a table or a row, has a part. Returns whether it had one
/// before.
bool PageStructure::MarkPart(ElementId whole) {
    return std::exchange(open_.At(open_.Innermost(whole)).has_part, true);
}

}  // namespace page_text
