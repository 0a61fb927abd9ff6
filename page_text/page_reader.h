#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "page_text/page_structure.h"
#include "page_text/text_assembler.h"
#include "page_text/tokenizer.h"

namespace page_text {

/// Goes through a page once, from its first byte to its last, and gives its visible text.
class PageReader {
  public:
    /// `page` is UTF-8.
    explicit PageReader(std::string_view page);

    /// The text as UTF-8. To be called once. Calls `yield`, if there is one, every so many bytes.
    std::string Read(const std::function<void()>& yield);

  private:
    void OnStartTag(const Tag& tag);
    void OnText(std::string_view text);
    void AppendText(std::string_view text);
    void AppendReferences(std::string_view text);
    void AppendPiece(std::string_view piece);

    Tokenizer tokenizer_;
    TextAssembler assembler_;
    PageStructure structure_;
};

}  // namespace page_text
