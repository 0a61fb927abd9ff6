#include "page_text/page_structure.h"

#include <optional>

namespace page_text {

namespace {

bool Has(ElementId id, std::uint16_t trait) {
    return (ElementOf(id).traits & trait) != 0;
}
bool Never(ElementId) {
    return false;
}

bool IsHeading(ElementId id) {
    return id >= Id("h1") && id <= Id("h6");
}
bool IsCell(ElementId id) {
    return id == Id("td") || id == Id("th");
}
bool IsTableScope(ElementId id) {
    return id == Id("table") || id == Id("template");
}
bool IsRowGroup(ElementId id) {
    return ElementOf(id).display == Display::kRowGroup;
}
bool IsTablePart(ElementId id) {
    return id == Id("tr") || id == Id("caption") || IsCell(id) || IsRowGroup(id);
}
bool BarsParagraph(ElementId id) {
    return Has(id, kScope) || id == Id("button");
}
bool BarsListItem(ElementId id) {
    return Has(id, kSpecial) && id != Id("address") && id != Id("div") && id != Id("p");
}

// Where the parts of a table may stand.
bool HoldsRowGroups(ElementId id) {
    return IsTableScope(id);
}
bool HoldsRows(ElementId id) {
    return IsTableScope(id) || IsRowGroup(id);
}
bool HoldsCells(ElementId id) {
    return HoldsRows(id) || id == Id("tr");
}

/// A box that stands in the line like a letter.
bool IsBox(Display display) {
    return display == Display::kInlineBox || display == Display::kReplaced;
}

/// The distance in lines that a block keeps; nothing for what is no block.
std::optional<int> EdgeLines(Display display) {
    switch (display) {
        case Display::kParagraph:
            return 2;
        case Display::kBlock:
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

bool PageStructure::PrepareFor(ElementId id) {
    if (State().foreign && Has(id, kEndsParagraph)) LeaveForeign();
    if (IsTablePart(id)) return PrepareTablePart(id);
    if (id == Id("table")) {
        // A table right inside another one, in no cell of it, ends that one.
        const auto part =
            open_.Find(IsTableScope, [](ElementId e) { return IsCell(e) || e == Id("caption"); });
        if (part && open_.At(*part).id == id) PopThrough(*part);
    }
    if (id == Id("form") && HoldsCells(open_.Top().id)) return false;
    if (id == Id("li") || id == Id("dd") || id == Id("dt")) CloseListItem(id);
    if (Has(id, kEndsParagraph)) {
        const auto paragraph = open_.Find([](ElementId e) { return e == Id("p"); }, BarsParagraph);
        if (paragraph) PopThrough(*paragraph);
    }
    const ElementId top = open_.Top().id;
    const bool option_part = id == Id("option") || id == Id("optgroup");
    const bool ruby_part = id == Id("rt") || id == Id("rp");
    if ((IsHeading(id) && IsHeading(top)) || (option_part && top == Id("option")) ||
        (ruby_part && top == Id("rp"))) {
        PopThrough(open_.Depth() - 1);
    }
    if (id == Id("button")) CloseInnermost(id, kScope);
    return true;
}

bool PageStructure::PrepareTablePart(ElementId id) {
    if (!open_.Find(IsTableScope, Never)) return false;
    if (IsCell(id)) {
        PopToTablePart(HoldsCells);
        if (open_.Top().id != Id("tr")) {
            Open({Id("tr"), Display::kRow, State().Shown(), State()});
        }
    } else {
        PopToTablePart(id == Id("tr") ? HoldsRows : HoldsRowGroups);
    }
    return true;
}

/// A list item ends the one before it, unless a list or another block begun since lies between.
void PageStructure::CloseListItem(ElementId id) {
    const auto same_kind = [id](ElementId e) {
        return id == Id("li") ? e == id : e == Id("dd") || e == Id("dt");
    };
    if (const auto item = open_.Find(same_kind, BarsListItem)) PopThrough(*item);
}

void PageStructure::LeaveForeign() {
    while (State().foreign) {
        PopThrough(open_.Depth() - 1);
    }
}

bool PageStructure::BetweenTableParts() const {
    return HoldsCells(open_.Top().id);
}

void PageStructure::Open(const OpenElement& element) {
    if (element.shown) OpenEdge(element.display);
    const bool plain = element.display == Display::kInline && element.content == State();
    if (plain && !open_.Holds(element.id)) return;
    if (open_.Full()) {
        ++too_deep_;
    } else {
        open_.Push(element);
    }
}

void PageStructure::OpenAndClose(Display display, bool shown) {
    if (!shown) return;
    OpenEdge(display);
    CloseEdge(display);
}

bool PageStructure::TakeFoldTitle() {
    OpenElement& fold = open_.Top();
    if (fold.id != Id("details") || fold.has_part) return false;
    fold.has_part = true;
    return true;
}

// End tags --------------------------------------------------------------------------------------

void PageStructure::Close(ElementId id) {
    if (too_deep_ > 0) {
        if (ElementOf(id).display == Display::kInline) return;
        --too_deep_;
        if (State().Shown()) assembler_.BlockEdge(1);
    } else if (IsTablePart(id) || id == Id("table")) {
        const auto part = open_.Find([id](ElementId e) { return e == id; }, IsTableScope);
        if (part) PopThrough(*part);
    } else if (IsHeading(id)) {
        const auto heading = open_.Find(IsHeading, [](ElementId e) { return Has(e, kScope); });
        if (heading) PopThrough(*heading);
    } else if (id == Id("p")) {
        const auto paragraph = open_.Find([](ElementId e) { return e == Id("p"); }, BarsParagraph);
        // An end tag alone is an empty paragraph.
        paragraph ? PopThrough(*paragraph) : OpenAndClose(Display::kParagraph, State().Shown());
    } else if (id == Id("ruby") && open_.Top().id == Id("rp")) {
        PopThrough(open_.Depth() - 1);
    } else {
        CloseInnermost(id, Has(id, kSpecial) ? kScope : kSpecial);
    }
}

/// Closes the innermost open `id` with all in it, unless something that has one of
/// `barrier_traits` lies inside it.
void PageStructure::CloseInnermost(ElementId id, std::uint16_t barrier_traits) {
    if (!open_.Holds(id)) return;
    const auto found = open_.Find([id](ElementId e) { return e == id; },
                                  [barrier_traits](ElementId e) { return Has(e, barrier_traits); });
    if (!found) return;
    if (id == Id("form")) {
        // A form's end tag closes no other element that is still open: those close by themselves.
        for (std::size_t inner = *found + 1; inner < open_.Depth(); ++inner) {
            if (!Has(open_.At(inner).id, kEndsImplicitly)) return;
        }
    }
    PopThrough(*found);
}

/// Closes the elements from the innermost to the one at `index`.
void PageStructure::PopThrough(std::size_t index) {
    while (open_.Depth() > index) {
        const OpenElement closed = open_.Pop();
        if (closed.shown) CloseEdge(closed.display);
    }
}

void PageStructure::PopToTablePart(bool (*stays)(ElementId)) {
    if (const auto part = open_.Find(stays, Never)) PopThrough(*part + 1);
}

// Edges -----------------------------------------------------------------------------------------

void PageStructure::OpenEdge(Display display) {
    if (IsBox(display)) assembler_.OpenBox();
    if (const auto lines = EdgeLines(display)) assembler_.BlockEdge(*lines);
    if (display == Display::kRow && MarkPart(Display::kTable)) assembler_.RowBreak();
    if (display == Display::kCell && MarkPart(Display::kRow)) assembler_.Tab();
}

void PageStructure::CloseEdge(Display display) {
    if (IsBox(display)) assembler_.CloseBox();
    if (const auto lines = EdgeLines(display)) assembler_.BlockEdge(*lines);
}

/// Notes that the `whole` (a table, a row) around the current position has a part; true when it had
/// one before.
bool PageStructure::MarkPart(Display whole) {
    std::size_t index = open_.Depth() - 1;
    while (index > 0 && open_.At(index).display == Display::kRowGroup) {
        --index;
    }
    OpenElement& element = open_.At(index);
    const bool had_part = element.display == whole && element.has_part;
    if (element.display == whole) element.has_part = true;
    return had_part;
}

}  // namespace page_text
