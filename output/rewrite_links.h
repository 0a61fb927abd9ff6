#pragma once

#include <string>

#include "text/replacements.h"

/// The local mirror. This file: the literal rules that make a saved page's links lead to the saved
/// files. They run on every file, whatever it is.
namespace bas_Output {

/// What the rules depend on besides the file's text.
struct RewritingOf {
    bool has_lines;         ///< a page or text: every LF becomes CR LF, then every CR becomes CR LF
    bool is_top_level;      ///< lies directly in the site's folder: links lose one "../"
    std::string from_host;  ///< the host that it came from: "http://host/" and "http://www.host/"
                            ///< go; from an empty one every "http://" goes
};

/// The rules for one file, in their order. Valid until the next call.
const text::Replacements& RewritingRules(const RewritingOf& file);

}  // namespace bas_Output
