#pragma once

#include <functional>
#include <string>
#include <utility>

#include "platform/page_text.h"

namespace platform {

/// Reads pages without a browser: what the body's innerText is in one, short of what style sheets
/// and scripts change. Goes through the page once and builds no tree, so that beside the page and
/// its text it needs next to no memory.
class HtmlInnerText : public PageText {
  public:
    /// `yield` is called now and then, so that a large page does not hold the window up.
    explicit HtmlInnerText(std::function<void()> yield = {}) : yield_(std::move(yield)) {}

    std::string InnerText(std::string file_bytes, PageKind kind) override;

  private:
    std::function<void()> yield_;
};

}  // namespace platform
