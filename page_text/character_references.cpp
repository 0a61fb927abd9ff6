#include "page_text/character_references.h"

#include <algorithm>

#include "page_text/ascii.h"
#include "page_text/utf8.h"

namespace page_text {

namespace {

/// The value of a hexadecimal digit; 16 for any other character.
unsigned DigitValue(char c) {
    if (IsDigit(c)) return static_cast<unsigned>(c - '0');
    const char lower = LowerLetter(c);
    return lower >= 'a' && lower <= 'f' ? static_cast<unsigned>(lower - 'a') + 10 : 16;
}

/// "&#8364;" or "&#x20AC;", with or without the ";".
std::size_t ReadNumber(std::string_view markup, std::string& utf8) {
    const bool hex = markup.size() > 2 && LowerLetter(markup[2]) == 'x';
    const unsigned base = hex ? 16 : 10;
    const std::size_t digits = hex ? 3 : 2;
    constexpr char32_t kTooLarge = 0x110000;
    char32_t number = 0;
    std::size_t at = digits;
    for (; at < markup.size() && DigitValue(markup[at]) < base; ++at) {
        number = std::min<char32_t>(number * base + DigitValue(markup[at]), kTooLarge);
    }
    if (at == digits) return 0;
    // Latin-1 has no printable characters here. Old editors wrote Windows-1252 numbers, and
    // browsers read them so.
    if (number >= 0x80 && number < 0xA0) number = Windows1252(static_cast<unsigned char>(number));
    AppendUtf8(number == 0 ? kReplacementCharacter : number, utf8);
    return at < markup.size() && markup[at] == ';' ? at + 1 : at;
}

std::size_t ReadName(std::string_view markup, std::string& utf8) {
    std::size_t end = 1;
    while (end < markup.size() && end <= kLongestCharacterName &&
           (IsLetter(markup[end]) || IsDigit(markup[end]))) {
        ++end;
    }
    const bool has_semicolon = end < markup.size() && markup[end] == ';';
    // Try the whole name first, then ever shorter prefixes: "&notit;" is "¬it;".
    for (std::size_t length = end - 1; length > 0; --length) {
        const NamedCharacter* found = FindNamedCharacter(markup.substr(1, length));
        const bool closed = has_semicolon && length == end - 1;
        if (found == nullptr || !(closed || found->without_semicolon)) continue;
        AppendUtf8(found->character, utf8);
        return 1 + length + (closed ? 1 : 0);
    }
    return 0;
}

}  // namespace

std::size_t ReadCharacterReference(std::string_view markup, std::string& utf8) {
    if (markup.size() < 2) return 0;
    return markup[1] == '#' ? ReadNumber(markup, utf8) : ReadName(markup, utf8);
}

}  // namespace page_text
