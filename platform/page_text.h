#pragma once

#include <string>

namespace platform {

/// What a file is shown as. A browser goes by the file's name: "*.txt" is plain text, whatever
/// stands in it.
enum class PageKind { Markup, PlainText };

/// Reads a page as a person sees it.
class PageText {
  public:
    virtual ~PageText() = default;

    /// The visible text of the body of the page whose file consists of `file_bytes`, blocks and
    /// breaks on lines of their own (LF), in the local 8-bit encoding. Takes any bytes, in linear
    /// time, and may let events run meanwhile.
    virtual std::string InnerText(std::string file_bytes, PageKind kind) = 0;
};

}  // namespace platform
