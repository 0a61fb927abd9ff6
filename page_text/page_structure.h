#pragma once

#include <cstddef>
#include <initializer_list>

#include "page_text/elements.h"
#include "page_text/open_elements.h"
#include "page_text/text_assembler.h"

namespace page_text {

/// Knows which elements the current position lies in, opens and closes them as a browser does
/// however the tags stand, and tells the assembler of every edge that shows in the text.
class PageStructure {
  public:
    PageStructure(TextAssembler& assembler, bool is_in_quirks_mode)
        : assembler_(assembler), is_in_quirks_mode_(is_in_quirks_mode) {}

    /// How text at the current position is shown.
    const TextState& State() const { return open_.Top().content; }
    /// Between the parts of a table, where white space is nothing.
    bool BetweenTableParts() const;

    /// A start tag.
    void Open(ElementId id, Display display);
    /// An end tag.
    void Close(ElementId id);

  private:
    void MakePlaceFor(ElementId part);
    bool EndsParagraph(ElementId id) const;
    bool CloseInnermost(ElementId id);
    std::size_t InnermostOf(std::initializer_list<ElementId> ids) const;
    void PopTo(std::size_t depth);
    void OpenEdge(Display display);
    void CloseEdge(Display display);
    bool MarkPart(ElementId whole);

    TextAssembler& assembler_;
    bool is_in_quirks_mode_;
    OpenElements open_;
};

}  // namespace page_text
