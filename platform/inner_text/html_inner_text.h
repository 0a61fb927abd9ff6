#pragma once

#include <string>
#include <string_view>

#include "platform/page_text.h"

namespace platform {

/// Reads pages without a browser: what the body's innerText is in one, short of what style sheets
/// and scripts change. Goes through the page once and builds no tree, so that beside the page and
/// its text it needs next to no memory.
class HtmlInnerText : public PageText {
  public:
    std::string InnerText(std::string_view file_bytes, PageKind kind) override;
};

}  // namespace platform
