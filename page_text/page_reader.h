#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

#include "page_text/decoder.h"
#include "page_text/page_structure.h"
#include "page_text/text_assembler.h"
#include "page_text/tokenizer.h"

namespace page_text {

/// Goes through a page once, from its first byte to its last, and gives its visible text.
class PageReader {
  public:
    /// `decoder` keeps markup and outlives the reader.
    PageReader(std::string_view page, Decoder& decoder);

    /// The text as UTF-8. To be called once. Calls `yield`, if there is one, every so many bytes.
    std::string Read(const std::function<void()>& yield);

  private:
    void OnText(std::string_view raw);
    void OnStartTag(const Tag& tag);
    void OnEndTag(ElementId id);
    void OnPageTag(const Tag& tag);
    void OnElement(const OpenElement& element, bool self_closing);
    OpenElement ReadElement(ElementId id, const Tag& tag);
    bool IsShownPart(ElementId id);
    std::string_view TakeContent(ElementId id);
    void AppendText(std::string_view raw);
    void AppendTextWithReferences(std::string_view raw);

    Tokenizer tokenizer_;
    Decoder& decoder_;
    TextAssembler assembler_;
    PageStructure structure_;
    std::string decoded_;          // The piece of text at hand; kept for its room.
    bool body_has_begun_ = false;  // From here on a frame set is ignored.
    bool is_frame_set_ = false;    // The page has frames in place of a body.
    bool body_is_hidden_ = false;  // Then all text of the page counts, shown or not.
    bool drop_line_end_ = false;   // The line end right after <pre> is not part of the text.
};

}  // namespace page_text
