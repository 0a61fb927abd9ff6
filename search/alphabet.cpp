#include "search/alphabet.h"

#include "search/case_folding.h"
#include "text/ascii.h"

namespace search {

namespace {

constexpr char32_t kFirstStrayByte = 0x110000;

bool IsContinuation(char c) {
    return (static_cast<unsigned char>(c) & 0xC0) == 0x80;
}

/// The length in bytes of a character that starts with `first`; 0 if none does.
std::size_t LengthFrom(unsigned char first) {
    if (first < 0x80) return 1;
    if (first < 0xC2 || first > 0xF4) return 0;
    return first < 0xE0 ? 2 : first < 0xF0 ? 3 : 4;
}

std::string Utf8(char32_t c) {
    const auto tail = [c](int shift) { return static_cast<char>(0x80 | ((c >> shift) & 0x3F)); };
    if (c < 0x80) return {static_cast<char>(c)};
    if (c < 0x800) return {static_cast<char>(0xC0 | (c >> 6)), tail(0)};
    if (c < 0x10000) return {static_cast<char>(0xE0 | (c >> 12)), tail(6), tail(0)};
    return {static_cast<char>(0xF0 | (c >> 18)), tail(12), tail(6), tail(0)};
}

}  // namespace

Alphabet::Alphabet() : utf8_(true), folded_{} {
    for (std::size_t byte = 0; byte < folded_.size(); ++byte) {
        folded_[byte] = static_cast<unsigned char>(text::LowerLetter(static_cast<char>(byte)));
    }
}

Alphabet::Alphabet(const std::array<unsigned char, 256>& folded) : utf8_(false), folded_(folded) {}

Character Alphabet::WideCharacterAt(std::string_view text, std::size_t at) {
    const auto first = static_cast<unsigned char>(text[at]);
    const std::size_t length = LengthFrom(first);
    const Character stray{kFirstStrayByte + first, 1};
    if (length < 2 || text.size() - at < length) return stray;
    auto value = static_cast<char32_t>(first & (0x7F >> length));
    for (std::size_t i = 1; i < length; ++i) {
        if (!IsContinuation(text[at + i])) return stray;
        value = value << 6 | (static_cast<unsigned char>(text[at + i]) & 0x3F);
    }
    return {FoldCase(value), length};
}

std::size_t Alphabet::BeginOf(std::string_view text, std::size_t at) const {
    if (!utf8_ || at >= text.size() || !IsContinuation(text[at])) return at;
    for (std::size_t back = 1; back < MostBytes() && back <= at; ++back) {
        if (IsContinuation(text[at - back])) continue;
        return CharacterAt(text, at - back).length > back ? at - back : at;
    }
    return at;
}

std::size_t Alphabet::Before(std::string_view text, std::size_t at) const {
    return BeginOf(text, at - 1);
}

std::vector<std::string> Alphabet::SpellingsOf(char32_t folded) const {
    std::vector<std::string> spellings;
    if (folded >= kFirstStrayByte) return {{static_cast<char>(folded - kFirstStrayByte)}};
    if (utf8_) {
        for (const char32_t c : search::SpellingsOf(folded))
            spellings.push_back(Utf8(c));
        return spellings;
    }
    for (std::size_t byte = 0; byte < folded_.size(); ++byte) {
        if (folded_[byte] == folded) spellings.push_back({static_cast<char>(byte)});
    }
    return spellings;
}

}  // namespace search
