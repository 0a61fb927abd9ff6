#pragma once

#include <string>

#include "text/replacements.h"

/// The local mirror. This file: the literal rules that make links in saved pages lead to the saved
/// files. They are applied to every file, whatever its type.
namespace bas_Output {

/// What the rules depend on, besides the file's text.
struct RewritingOf {
    bool has_lines;         ///< a page or text: every LF becomes CR LF, then every CR becomes CR LF
    bool is_top_level;      ///< directly in the site's folder: links lose one "../"
    std::string from_host;  ///< the host of the file: "http://host/" and "http://www.host/" are
                            ///< removed; if it is empty, every "http://" is
};

/// The rules for one file, in order. Valid until the next call.
const text::Replacements& RewritingRules(const RewritingOf& file);

}  // namespace bas_Output
