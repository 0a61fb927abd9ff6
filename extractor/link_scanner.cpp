#include "extractor/link_scanner.h"

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

#include "extractor/addresses.h"
#include "extractor/admission.h"
#include "platform/services.h"
#include "text/http_scheme.h"
#include "text/replacements.h"
#include "text/text.h"

namespace bas_Extractor {

namespace {

constexpr std::string_view kLink = "href";
/// The distance from the "h" of one link to where the search for the next one starts: "href=" and
/// five characters.
constexpr std::size_t kStep = 10;
constexpr std::size_t kLongestLink = 300;

/// The order matters for blanks around the "=": the first pattern turns "href = x" into "href= x",
/// so the second one does not match there.
constexpr std::string_view kLinkAttributes[] = {
    "href =",       "href = ",     "href=",                                    //
    "HREF=",        "HREF = ",     "HREF =",        "HREF= ",                  //
    "hRef=",        "hRef = ",     "hRef =",        "hRef= ",                  //
    "Href=",        "Href = ",     "Href =",        "Href= ",       "Href= ",  //
    "hREF=",        "hREF = ",     "hREF =",        "hREF= ",                  //
    "background =", "background=", "background = ", "background= ",            //
    "BACKGROUND =", "BACKGROUND=", "BACKGROUND = ", "BACKGROUND= ",            //
    "BackGround =", "BackGround=", "BackGround = ", "BackGround= ",            //
    " SRC=",        " src=",       " SRC =",        " src =",                  //
    " SRC = ",      " src = ",     " SRC= ",        " src= ",                  //
};

constexpr std::string_view kMetaRefresh[] = {"; url=", ";url=", "; URL=", ";URL="};

constexpr std::string_view kSkippedSchemes[] = {"https", "irc:", "ftp:", "@"};

/// Rules that rewrite every known kind of link to the form "href='...".
const text::Replacements& PageRules() {
    static const text::Replacements rules = [] {
        std::vector<text::Replacements::Rule> in_order;
        for (const std::string_view attribute : kLinkAttributes) {
            in_order.push_back({std::string(attribute), "href="});
        }
        in_order.insert(in_order.end(), {{"\"", "'"}, {"\n", ""}, {"\r", ""}});
        for (const std::string_view refresh : kMetaRefresh) {
            in_order.push_back({std::string(refresh), "a href='http://"});
        }
        return text::Replacements(in_order);
    }();
    return rules;
}

/// Resolves `link` against the page's directory `base`. A doubled slash after a host name in
/// ".com", ".net" or ".org" is fixed before the others, and a doubled scheme after them.
std::string MakeAbsolute(std::string link, const std::string& base) {
    text::ReplaceAllIn(link, "\\", "/");
    if (!link.starts_with(text::kHttp)) link.insert(0, base);
    text::ReplaceAllIn(link, "m//", "m/");
    text::ReplaceAllIn(link, "t//", "t/");
    text::ReplaceAllIn(link, "g//", "g/");
    link = CollapseSlashes(link);
    text::ReplaceAllIn(link, "http://http://", "http://");
    return link;
}

/// The target of the first link in `page`, made absolute; nothing if it is not to be followed.
std::optional<std::string> FirstTarget(std::string_view page, const std::string& base) {
    const std::size_t at = text::InStr(page, kLink);
    if (at == 0) return std::nullopt;

    const std::string_view window = text::Mid(page, at + kLink.size() + 1, kLongestLink);
    std::string link(text::Trim(window));
    if (link.starts_with('\'')) link.erase(0, 1);
    if (link.starts_with('#')) return std::nullopt;
    link = text::Trim(CutLinkAtDelimiter(link));
    text::ReplaceAllIn(link, "\r\n", "");
    for (const std::string_view scheme : kSkippedSchemes) {
        if (text::Contains(link, scheme)) return std::nullopt;
    }
    return MakeAbsolute(std::move(link), base);
}

void StepOverFirstLink(text::ConsumableText& page) {
    const std::size_t at = text::InStr(page.View(), kLink);
    if (at != 0) page.Consume(at - 1 + kStep);
}

void Yield(int times) {
    for (int i = 0; i < times; ++i) {
        platform::System().events.DoEventsThrottled();
    }
}

}  // namespace

void ExtractLinks(text::ConsumableText& page, crawl::ListItems& queue_list, std::string& base_url) {
    if (!base_url.ends_with('/')) base_url += '/';
    PageRules().ApplyTo(page.Edit());
    // Events run at several points, also in admission. They may append to the page, and a nested
    // scan may consume it, so each step searches whatever is left for its first link. A replaced
    // text belongs to another download, which is still receiving.
    const unsigned generation = page.Generation();
    while (page.Generation() == generation && text::Contains(page.View(), kLink)) {
        Yield(3);
        if (page.Generation() != generation) return;
        const std::optional<std::string> target = FirstTarget(page.View(), base_url);
        if (target) AdmitLink(*target, queue_list);
        if (page.Generation() != generation) return;
        StepOverFirstLink(page);
        Yield(2);
    }
}

}  // namespace bas_Extractor
