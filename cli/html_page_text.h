#pragma once

#include <functional>
#include <string>
#include <utility>

#include "page_text/inner_text.h"
#include "platform/page_text.h"

namespace cli {

/// Extracts page text with our own parser, so that no browser is needed.
class HtmlPageText final : public platform::PageText {
  public:
    /// `yield` is called before and after each page, and now and then during a large one.
    explicit HtmlPageText(std::function<void()> yield = {}) : yield_(std::move(yield)) {}

    std::string InnerText(std::string file_bytes, platform::PageKind kind) override {
        if (yield_) yield_();
        std::string text = kind == platform::PageKind::PlainText
                               ? page_text::InnerTextOfPlainText(std::move(file_bytes))
                               : page_text::InnerTextOfMarkup(file_bytes, yield_);
        if (yield_) yield_();
        return text;
    }

  private:
    std::function<void()> yield_;
};

}  // namespace cli
