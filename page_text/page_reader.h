#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "page_text/page_structure.h"
#include "page_text/text_assembler.h"
#include "page_text/tokenizer.h"

namespace page_text {

/// Reads a page in one pass and produces its visible text.
class PageReader {
  public:
    /// `page` is UTF-8.
    explicit PageReader(std::string_view page);

    /// The text as UTF-8. May be called only once. Calls `yield`, if given, from time to time.
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
