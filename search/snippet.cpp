#include "search/snippet.h"

#include <algorithm>

#include "text/ascii.h"
#include "text/text.h"

namespace search {

namespace {

/// The number of a snippet's characters before the match.
constexpr std::size_t kCharactersBefore = 50;

bool IsBreak(char c) {
    return c == ' ' || static_cast<unsigned char>(c) < 0x20;
}

/// The position `count` characters before `at`, but not before the start of the line.
std::size_t Back(std::string_view text, std::size_t at, std::size_t count,
                 const Alphabet& alphabet) {
    for (; count > 0 && at > 0 && text[at - 1] != '\n'; --count)
        at = alphabet.Before(text, at);
    return at;
}

/// The position `count` characters after `at`, but not after the end of the line.
std::size_t Forth(std::string_view text, std::size_t at, std::size_t count,
                  const Alphabet& alphabet) {
    for (; count > 0 && at < text.size() && text[at] != '\n'; --count)
        at += alphabet.CharacterAt(text, at).length;
    return at;
}

bool IsPunctuation(char c) {
    return c > ' ' && c < 0x7F && !text::IsLetter(c) && !(c >= '0' && c <= '9');
}

/// Whether the character at `at` separates words.
bool IsBlank(std::string_view text, std::size_t at, const Alphabet& alphabet) {
    constexpr char32_t kNoBreakSpace = 0xA0;
    const char32_t c = alphabet.CharacterAt(text, at).folded;
    return c <= ' ' || c == kNoBreakSpace;
}

}  // namespace

std::string SnippetAround(std::string_view text, Span match, const Alphabet& alphabet) {
    std::size_t begin = Back(text, match.begin, kCharactersBefore, alphabet);
    if (begin > 0 && !IsBreak(text[begin - 1])) {
        const std::size_t blank = text.substr(0, match.begin).find(' ', begin);
        if (blank != std::string_view::npos) begin = blank + 1;
    }
    while (begin < match.begin && IsBreak(text[begin]))
        ++begin;
    std::size_t end = Forth(text, begin, kSnippetCharacters, alphabet);
    if (end < text.size() && !IsBreak(text[end])) {
        const std::size_t blank = text.substr(0, end).rfind(' ');
        if (blank != std::string_view::npos && blank >= match.end) end = blank;
    }
    std::string snippet(text.substr(begin, end - begin));
    std::replace_if(snippet.begin(), snippet.end(), IsBreak, ' ');
    while (snippet.ends_with(' '))
        snippet.pop_back();
    return snippet;
}

std::string WholeWords(std::string_view text, Span match, const Alphabet& alphabet) {
    auto [begin, end] = match;
    while (begin > 0 && !IsBlank(text, alphabet.Before(text, begin), alphabet))
        begin = alphabet.Before(text, begin);
    while (end < text.size() && !IsBlank(text, end, alphabet))
        end += alphabet.CharacterAt(text, end).length;
    while (begin < match.begin && IsPunctuation(text[begin]))
        ++begin;
    while (end > match.end && IsPunctuation(text[end - 1]))
        --end;
    return std::string(text::Trim(text.substr(begin, end - begin)));
}

}  // namespace search
