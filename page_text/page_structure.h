#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "page_text/elements.h"
#include "page_text/open_elements.h"
#include "page_text/text_assembler.h"

namespace page_text {

/// Knows which elements the current position lies in, opens and closes them as a browser does
/// however the tags stand, and tells the assembler of every edge that shows in the text.
class PageStructure {
  public:
    explicit PageStructure(TextAssembler& assembler) : assembler_(assembler) {}

    /// How text at the current position is shown.
    const TextState& State() const { return open_.Top().content; }
    /// Changes it for what follows in the page itself, for the tags <html> and <body>.
    TextState& PageState() { return open_.At(0).content; }
    bool Inside(ElementId id) const { return open_.Holds(id); }
    /// Between the parts of a table, where white space is nothing.
    bool BetweenTableParts() const;

    /// Closes what a start tag of `id` closes. False when the tag counts for nothing where it
    /// stands (a cell outside every table).
    bool PrepareFor(ElementId id);

    /// The element begins. One that makes no difference to the text is not remembered.
    void Open(const OpenElement& element);
    /// An element without content to go through.
    void OpenAndClose(Display display, bool shown);

    /// An end tag.
    void Close(ElementId id);

    /// For a <summary>: true when it is the title of the fold that it stands in.
    bool TakeFoldTitle();

  private:
    bool PrepareTablePart(ElementId id);
    void CloseListItem(ElementId id);
    void CloseInnermost(ElementId id, std::uint16_t barrier_traits);
    void PopThrough(std::size_t index);
    void PopToTablePart(bool (*stays)(ElementId));
    void LeaveForeign();
    void OpenEdge(Display display);
    void CloseEdge(Display display);
    bool MarkPart(Display whole);

    TextAssembler& assembler_;
    OpenElements open_;
    std::size_t too_deep_ = 0;  // Open elements beyond the greatest depth: counted, not remembered.
};

}  // namespace page_text
