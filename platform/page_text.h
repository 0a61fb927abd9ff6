#pragma once

#include <string>

namespace platform {

/// How a file is shown. A browser goes by the name: "*.txt" is plain text, whatever it contains.
enum class PageKind { Markup, PlainText };

/// Extracts the visible text of a page.
class PageText {
  public:
    virtual ~PageText() = default;

    /// The visible text of the page's body in the local 8-bit encoding, with blocks and breaks on
    /// lines of their own (LF). `file_bytes` is the whole file. Accepts any bytes, takes linear
    /// time, and may let events run meanwhile.
    virtual std::string InnerText(std::string file_bytes, PageKind kind) = 0;
};

}  // namespace platform
