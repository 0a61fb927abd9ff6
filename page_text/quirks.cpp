#include "page_text/quirks.h"

#include <algorithm>
#include <iterator>
#include <optional>

#include "page_text/ascii.h"
#include "page_text/tokenizer.h"

namespace page_text {

namespace {

bool StartsIgnoringCase(std::string_view subject, std::string_view lower_case) {
    return EqualsIgnoringCase(subject.substr(0, lower_case.size()), lower_case);
}

/// Removes everything up to and including the next quoted text from `rest` and returns that text.
std::optional<std::string_view> TakeQuoted(std::string_view& rest) {
    const std::size_t quote = rest.find_first_of("\"'");
    if (quote == std::string_view::npos) return std::nullopt;
    const std::size_t begin = quote + 1;
    const std::size_t end = std::min(rest.find(rest[quote], begin), rest.size());
    const std::string_view taken = rest.substr(begin, end - begin);
    rest.remove_prefix(std::min(end + 1, rest.size()));
    return taken;
}

// Prefixes of the public identifiers that mean quirks mode. Browsers know about forty; these are
// the ones that occur in pages.
constexpr std::string_view kQuirksVersions[] = {
    "-//ietf//dtd html",
    "-//w3c//dtd html 3",
    "-//w3c//dtd html 4.0 frameset//",
    "-//w3c//dtd html 4.0 transitional//",
};

// These mean it only if no system identifier follows.
constexpr std::string_view kQuirksVersionsAlone[] = {
    "-//w3c//dtd html 4.01 frameset//",
    "-//w3c//dtd html 4.01 transitional//",
};

/// `doctype` is the text after the word "doctype".
bool IsQuirksDoctype(std::string_view doctype) {
    doctype = TrimMarkupSpace(doctype);
    if (!StartsIgnoringCase(doctype, "html")) return true;
    const std::string_view version = TakeQuoted(doctype).value_or("");
    const auto is_version = [version](std::string_view begin) {
        return StartsIgnoringCase(version, begin);
    };
    return std::any_of(std::begin(kQuirksVersions), std::end(kQuirksVersions), is_version) ||
           (!TakeQuoted(doctype) && std::any_of(std::begin(kQuirksVersionsAlone),
                                                std::end(kQuirksVersionsAlone), is_version));
}

}  // namespace

bool IsInQuirksMode(std::string_view page) {
    Tokenizer tokenizer(page);
    for (Tokenizer::Kind kind; (kind = tokenizer.Next()) != Tokenizer::Kind::kEnd;) {
        constexpr std::string_view kDoctype = "doctype";
        const std::string_view text = tokenizer.Text();
        if (kind == Tokenizer::Kind::kDeclaration) {
            if (!StartsIgnoringCase(text, kDoctype)) continue;
            return IsQuirksDoctype(text.substr(kDoctype.size()));
        }
        // A doctype counts only before everything else.
        const bool is_blank =
            kind == Tokenizer::Kind::kText && std::all_of(text.begin(), text.end(), IsMarkupSpace);
        if (!is_blank) break;
    }
    return true;
}

}  // namespace page_text
