#include "extractor/addresses.h"

#include <cstddef>
#include <string_view>

#include "text/http_scheme.h"
#include "text/text.h"

namespace bas_Extractor {

namespace {

constexpr std::size_t kDigitsInGroup = 3;

std::string CutAtFirstOf(const std::string& s, std::string_view delimiters) {
    return s.substr(0, s.find_first_of(delimiters));
}

/// The segment before the first "/../" of `s`, including its leading slash; "" if no slash precedes
/// it.
std::string SegmentBeforeDotDot(std::string_view s) {
    const std::size_t dot_dot = s.find("/../");
    if (dot_dot == 0 || dot_dot == std::string_view::npos) return "";
    const std::size_t slash = s.rfind('/', dot_dot - 1);
    if (slash == std::string_view::npos) return "";
    return std::string(s.substr(slash, dot_dot - slash));
}

}  // namespace

std::string ReverseText(const std::string& s) {
    return std::string(s.rbegin(), s.rend());
}

std::string LowerTrim(const std::string& s) {
    return text::LowerCase(text::Trim(s));
}

std::string LastChar(const std::string& s) {
    if (text::Trim(s).empty()) return "";
    return std::string(1, s.back());
}

bool EndsWithSlash(const std::string& s) {
    const std::string last = LastChar(s);
    return last == "/" || last == "\\";
}

std::string GetExtension(const std::string& s) {
    const std::size_t dot = s.rfind('.');
    return dot == std::string::npos ? s : s.substr(dot);
}

std::string StripHttp(std::string& s) {
    std::string address(text::WithoutHttp(text::Trim(s)));
    text::ReplaceAllIn(address, "http:\\\\", "");
    text::ReplaceAllIn(address, "\\", "/");
    s = address;
    return address;
}

std::string UrlToPathPart(const std::string& s) {
    std::string path(text::WithoutHttp(text::Trim(s)));
    text::ReplaceAllIn(path, "www.", "");
    path = std::string(text::Trim(path));
    text::ReplaceAllIn(path, "/", "\\");
    return path;
}

std::string CollapseSlashes(const std::string& s) {
    std::string rest(text::Trim(text::Mid(s, text::kHttp.size() + 1)));
    text::ReplaceAllIn(rest, "//", "/");
    return s.substr(0, text::kHttp.size()) + rest;
}

std::string CutLinkAtDelimiter(const std::string& s) {
    return CutAtFirstOf(s, "#'>} ;");
}

std::string CutHostAtDelimiter(const std::string& s) {
    return CutAtFirstOf(s, "#'>}? /\\");
}

std::string CutDotDotOnce(std::string& s) {
    text::ReplaceAllIn(s, "\\", "/");
    const std::size_t dot_dot = s.find("/../");
    if (dot_dot != std::string::npos) s.erase(dot_dot + 1, 3);
    return s;
}

std::string ResolveDotDot(std::string& s) {
    text::ReplaceAllIn(s, "\\", "/");
    // Each iteration shortens the address, so the loop ends: a non-empty segment occurs at least
    // where it was found, and an empty one leaves the "/../" to be cut.
    while (text::Contains(s, "/../")) {
        text::ReplaceAllIn(s, SegmentBeforeDotDot(s), "");
        CutDotDotOnce(s);
    }
    return s;
}

std::string FormatThousands(std::string& s) {
    s = LowerTrim(s);
    std::string result;
    for (std::size_t i = 0; i < s.size(); ++i) {
        if (i > 0 && (s.size() - i) % kDigitsInGroup == 0) result += ',';
        result += s[i];
    }
    return result;
}

}  // namespace bas_Extractor
