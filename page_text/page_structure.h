#pragma once

#include <cstddef>
#include <initializer_list>

#include "page_text/elements.h"
#include "page_text/open_elements.h"
#include "page_text/text_assembler.h"

namespace page_text {

/// Tracks the open elements. Opens and closes them as a browser does, however badly the tags are
/// nested, and reports every edge that affects the text to the assembler.
class PageStructure {
  public:
    PageStructure(TextAssembler& assembler, bool is_in_quirks_mode)
        : assembler_(assembler), is_in_quirks_mode_(is_in_quirks_mode) {}

    /// How text at the current position is shown.
    const TextState& State() const { return open_.Top().content; }
    /// Whether the position is between the parts of a table, where white space is ignored.
    bool BetweenTableParts() const;

    /// Handles a start tag.
    void Open(ElementId id, Display display);
    /// Handles an end tag.
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
