#include "output/rewrite_links.h"

#include <array>
#include <cstddef>
#include <iterator>
#include <optional>
#include <vector>

#include "text/http_scheme.h"
#include "text/text.h"

namespace bas_Output {

namespace {

using Rules = std::vector<text::Replacements::Rule>;

const text::Replacements::Rule kLineEndRules[] = {{"\n", "\r\n"}, {"\r", "\r\n"}};

// The order matters: a later rule may match what an earlier one has made.
const text::Replacements::Rule kDynamicLinkRules[] = {
    {".php'", ".php.html'"}, {".php\"", ".php.html\""}, {".php>", ".php.html>"},
    {".asp'", ".asp.html'"}, {".asp\"", ".asp.html\""}, {".asp>", ".asp.html>"},
    {".php?", ".php_"},      {".PHP?", ".PHP_"},
};

// The mixed quotes and the moved blank in the last rule must stay: downloading a page again must
// give the same file.
const text::Replacements::Rule kClimbingLinkRules[] = {
    {"href=\"../", "href=\""},    {"href =\"../", "href =\""}, {"href = \"../", "href = \""},
    {"href= \"../", "href= \""},  {"href='../", "href=\""},    {"href ='../", "href =\""},
    {"href = '../", "href = \""}, {"href= '../", "href =\""},
};

// These keep applets and scripts from running.
const text::Replacements::Rule kScriptRules[] = {
    {"applet", ""},
    {"script ", " !-- script "},
};

template <std::size_t N>
void Add(const text::Replacements::Rule (&rules)[N], Rules& all) {
    all.insert(all.end(), std::begin(rules), std::end(rules));
}

void AddOwnLinkRules(const std::string& host, Rules& all) {
    std::string site{text::Trim(host)};
    if (!text::HasHttp(site)) site.insert(0, text::kHttp);
    text::ReplaceAllIn(site, "\\", "/");
    text::ReplaceAllIn(site, "www.", "");
    if (site.ends_with('/')) site.pop_back();
    site += '/';
    all.push_back({site, ""});
    text::ReplaceAllIn(site, "http://", "http://www.");
    all.push_back({site, ""});
}

Rules MakeRules(const RewritingOf& file) {
    Rules rules;
    if (file.has_lines) Add(kLineEndRules, rules);
    Add(kDynamicLinkRules, rules);
    if (file.is_top_level) Add(kClimbingLinkRules, rules);
    AddOwnLinkRules(file.from_host, rules);
    Add(kScriptRules, rules);
    return rules;
}

}  // namespace

const text::Replacements& RewritingRules(const RewritingOf& file) {
    // Nearly all files of a crawl come from one host, and making the rules takes longer than
    // applying them to a picture. So the last rules for each kind of file are kept.
    struct Kept {
        std::string from_host;
        std::optional<text::Replacements> rules;
    };
    static std::array<Kept, 4> kept;
    auto& [from_host, rules] = kept[(file.has_lines ? 2 : 0) + (file.is_top_level ? 1 : 0)];
    if (!rules || from_host != file.from_host) {
        rules.emplace(MakeRules(file));
        from_host = file.from_host;
    }
    return *rules;
}

}  // namespace bas_Output
