#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

#include "page_text/charsets.h"
#include "page_text/system_converter.h"

namespace page_text {

/// Turns a page's bytes into UTF-8, piece by piece.
class Decoder {
  public:
    explicit Decoder(const Charset& charset);

    /// True when "<" is a byte 0x3C and such a byte always "<", so that markup can be read without
    /// decoding it.
    bool KeepsMarkup() const;

    /// Appends the start of `bytes`, which begin with a whole character, as UTF-8, and gives how
    /// many of them that was: at least one, and for encodings that keep markup a limited number, so
    /// that a long text needs no second copy of itself.
    std::size_t DecodeSome(std::string_view bytes, std::string& utf8);

  private:
    Charset::Family family_;
    std::unique_ptr<SystemConverter> host_;
};

}  // namespace page_text
