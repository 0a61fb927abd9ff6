#pragma once

#include <functional>
#include <string>
#include <string_view>

/// The visible text of a saved page without a browser: the body's innerText, except for the effects
/// of style sheets and scripts. Accepts any bytes and takes linear time: one pass, no tree.
namespace page_text {

/// The visible text of an HTML page in the local 8-bit encoding, with blocks and breaks on lines of
/// their own (LF). `file_bytes` is the whole file. `yield` is called now and then, so that the
/// window stays responsive during a large page.
std::string InnerTextOfMarkup(std::string_view file_bytes, const std::function<void()>& yield = {});

/// The same for a plain text file, which a browser shows as it is.
std::string InnerTextOfPlainText(std::string file_bytes);

}  // namespace page_text
