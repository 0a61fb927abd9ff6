#include "output/rewrite_links.h"

#include <algorithm>
#include <cstddef>
#include <string_view>

#include "text/http_scheme.h"
#include "text/text.h"

namespace bas_Output {

namespace {

struct Rule {
    std::string_view find;
    std::string_view replacement;
};

// The order counts: what an earlier rule made, a later one may find.
constexpr Rule kDynamicLinkRules[] = {
    {".php'", ".php.html'"}, {".php\"", ".php.html\""}, {".php>", ".php.html>"},
    {".asp'", ".asp.html'"}, {".asp\"", ".asp.html\""}, {".asp>", ".asp.html>"},
    {".php?", ".php_"},      {".PHP?", ".PHP_"},
};

// Saved mirrors have always had these mixed quotes and the moved blank of the last rule; a copy
// made again must come out the same.
constexpr Rule kClimbingLinkRules[] = {
    {"href=\"../", "href=\""},    {"href =\"../", "href =\""}, {"href = \"../", "href = \""},
    {"href= \"../", "href= \""},  {"href='../", "href=\""},    {"href ='../", "href =\""},
    {"href = '../", "href = \""}, {"href= '../", "href =\""},
};

constexpr Rule kScriptRules[] = {
    {"applet", ""},
    {"script ", " !-- script "},
};

template <std::size_t N>
void Apply(const Rule (&rules)[N], std::string& page) {
    for (const Rule& rule : rules) {
        text::ReplaceAllIn(page, rule.find, rule.replacement);
    }
}

}  // namespace

void DoubleLineEnds(std::string& page) {
    text::ReplaceAllIn(page, "\n", "\r\n");
    text::ReplaceAllIn(page, "\r", "\r\n");
}

std::size_t LineEndGrowth(std::string_view page) {
    const auto line_feeds = std::count(page.begin(), page.end(), '\n');
    const auto returns = std::count(page.begin(), page.end(), '\r');
    return static_cast<std::size_t>(2 * line_feeds + returns);
}

void RewriteDynamicLinks(std::string& page) {
    Apply(kDynamicLinkRules, page);
}

void FlattenClimbingLinks(std::string& page) {
    Apply(kClimbingLinkRules, page);
}

void MakeOwnLinksRelative(std::string& page, const std::string& host) {
    std::string site{text::Trim(host)};
    if (!text::HasHttp(site)) site.insert(0, text::kHttp);
    text::ReplaceAllIn(site, "\\", "/");
    text::ReplaceAllIn(site, "www.", "");
    if (site.ends_with('/')) site.pop_back();
    site += '/';
    text::ReplaceAllIn(page, site, "");
    text::ReplaceAllIn(site, "http://", "http://www.");
    text::ReplaceAllIn(page, site, "");
}

void DisableScripts(std::string& page) {
    Apply(kScriptRules, page);
}

}  // namespace bas_Output
