#pragma once

#include <functional>
#include <string>
#include <string_view>

/// What a person sees of a saved page, without a browser: what the body's innerText is in one,
/// short of what style sheets and scripts change. Takes any bytes, in linear time, goes through the
/// page once and builds no tree.
namespace page_text {

/// The visible text of the HTML page whose file consists of `file_bytes`, blocks and breaks on
/// lines of their own (LF), in the local 8-bit encoding. `yield` is called now and then, so that a
/// large page does not hold the window up.
std::string InnerTextOfMarkup(std::string_view file_bytes, const std::function<void()>& yield = {});

/// The same for a text file, which a browser shows as it is.
std::string InnerTextOfPlainText(std::string file_bytes);

}  // namespace page_text
