#include "page_text/utf8.h"

#include <array>
#include <cstring>

namespace page_text {

namespace {

bool IsAscii(char byte) {
    return static_cast<unsigned char>(byte) < 0x80;
}

bool IsContinuation(unsigned char byte) {
    return (byte & 0xC0) == 0x80;
}

/// What a first byte implies: the character's length and the range of its second byte. The range
/// excludes overlong forms, surrogates and numbers beyond the last character.
struct Lead {
    std::size_t length;
    unsigned char second_from, second_to;
};

Lead LeadOf(unsigned char byte) {
    if (byte < 0x80) return {1, 0, 0};
    if (byte < 0xC2 || byte > 0xF4) return {0, 0, 0};
    if (byte < 0xE0) return {2, 0x80, 0xBF};
    if (byte == 0xE0) return {3, 0xA0, 0xBF};
    if (byte == 0xED) return {3, 0x80, 0x9F};
    if (byte < 0xF0) return {3, 0x80, 0xBF};
    if (byte == 0xF0) return {4, 0x90, 0xBF};
    if (byte == 0xF4) return {4, 0x80, 0x8F};
    return {4, 0x80, 0xBF};
}

/// The number of bytes at the start of `bytes` that can belong to one character. Sets `whole` to
/// whether they complete it.
std::size_t MatchCharacter(std::string_view bytes, bool& whole) {
    const Lead lead = LeadOf(static_cast<unsigned char>(bytes[0]));
    std::size_t matched = 1;
    while (matched < lead.length && matched < bytes.size()) {
        const auto byte = static_cast<unsigned char>(bytes[matched]);
        const bool fits = matched == 1 ? byte >= lead.second_from && byte <= lead.second_to
                                       : IsContinuation(byte);
        if (!fits) break;
        ++matched;
    }
    whole = matched == lead.length;
    return matched;
}

/// The number of ASCII bytes at the start of `bytes`. Checks eight at a time, because most pages
/// are mostly ASCII.
std::size_t AsciiLength(std::string_view bytes) {
    std::size_t length = 0;
    for (unsigned long long word; length + sizeof word <= bytes.size(); length += sizeof word) {
        std::memcpy(&word, bytes.data() + length, sizeof word);
        if ((word & 0x8080808080808080ULL) != 0) break;
    }
    while (length < bytes.size() && IsAscii(bytes[length])) {
        ++length;
    }
    return length;
}

}  // namespace

void AppendUtf8(char32_t code_point, std::string& utf8) {
    const bool surrogate = code_point >= 0xD800 && code_point <= 0xDFFF;
    const char32_t c = surrogate || code_point > 0x10FFFF ? kReplacementCharacter : code_point;
    const auto continuation = [c](int shift) {
        return static_cast<char>(0x80 | ((c >> shift) & 0x3F));
    };
    if (c < 0x80) {
        utf8 += static_cast<char>(c);
    } else if (c < 0x800) {
        utf8 += {static_cast<char>(0xC0 | (c >> 6)), continuation(0)};
    } else if (c < 0x10000) {
        utf8 += {static_cast<char>(0xE0 | (c >> 12)), continuation(6), continuation(0)};
    } else {
        utf8 += {static_cast<char>(0xF0 | (c >> 18)), continuation(12), continuation(6),
                 continuation(0)};
    }
}

std::size_t ValidUtf8Length(std::string_view bytes) {
    std::size_t valid = 0;
    while ((valid += AsciiLength(bytes.substr(valid))) < bytes.size()) {
        bool whole = false;
        const std::size_t matched = MatchCharacter(bytes.substr(valid), whole);
        if (!whole) break;
        valid += matched;
    }
    return valid;
}

std::string RepairedUtf8(std::string_view bytes) {
    std::string utf8;
    utf8.reserve(bytes.size());
    while (!bytes.empty()) {
        const std::size_t valid = ValidUtf8Length(bytes);
        utf8 += bytes.substr(0, valid);
        bytes.remove_prefix(valid);
        if (bytes.empty()) break;
        AppendUtf8(kReplacementCharacter, utf8);
        bool whole = false;
        bytes.remove_prefix(MatchCharacter(bytes, whole));
    }
    return utf8;
}

std::string FromUtf16(std::string_view bytes, bool big_endian) {
    const auto unit_at = [bytes, big_endian](std::size_t at) {
        const auto first = static_cast<unsigned char>(bytes[at]);
        const auto second = static_cast<unsigned char>(bytes[at + 1]);
        return static_cast<char32_t>(big_endian ? first << 8 | second : second << 8 | first);
    };
    std::string utf8;
    for (std::size_t at = 0; at + 1 < bytes.size(); at += 2) {
        const char32_t unit = unit_at(at);
        const bool high = unit >= 0xD800 && unit < 0xDC00;
        const char32_t low = high && at + 3 < bytes.size() ? unit_at(at + 2) : 0;
        if (low >= 0xDC00 && low < 0xE000) {
            AppendUtf8(0x10000 + ((unit - 0xD800) << 10) + (low - 0xDC00), utf8);
            at += 2;
        } else {
            AppendUtf8(unit, utf8);  // A lone surrogate becomes the replacement character.
        }
    }
    return utf8;
}

char32_t Windows1252(unsigned char byte) {
    // Bytes that the code page leaves undefined map to the control characters with their number.
    static constexpr std::array<char16_t, 32> kFrom80 = {
        0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
        0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
        0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};
    return byte >= 0x80 && byte < 0xA0 ? char32_t{kFrom80[byte - 0x80u]} : char32_t{byte};
}

std::string FromWindows1252(std::string_view bytes) {
    std::string utf8;
    utf8.reserve(bytes.size());
    while (!bytes.empty()) {
        const std::size_t ascii = AsciiLength(bytes);
        utf8 += bytes.substr(0, ascii);
        bytes.remove_prefix(ascii);
        for (; !bytes.empty() && !IsAscii(bytes[0]); bytes.remove_prefix(1)) {
            AppendUtf8(Windows1252(static_cast<unsigned char>(bytes[0])), utf8);
        }
    }
    return utf8;
}

}  // namespace page_text
