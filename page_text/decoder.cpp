#include "page_text/decoder.h"

#include <algorithm>

#include "page_text/utf8.h"

namespace page_text {

namespace {

using Family = Charset::Family;

constexpr std::size_t kPiece = 64 * 1024;

/// How many of `bytes` to decode at once. A byte below "0" (a blank, a line end, a comma) is never
/// the middle of a character, in UTF-8 nor in the system's encodings; with none of them in the
/// piece it is cut where it must be, in UTF-8 still between two characters.
std::size_t PieceLength(std::string_view bytes, Family family) {
    if (bytes.size() <= kPiece) return bytes.size();
    std::size_t length = kPiece;
    if (family == Family::kUtf8) {
        while (length > kPiece - 4 && (static_cast<unsigned char>(bytes[length]) & 0xC0) == 0x80) {
            --length;
        }
    } else if (family == Family::kAsciiBased) {
        while (length > 0 && static_cast<unsigned char>(bytes[length - 1]) >= '0') {
            --length;
        }
    }
    return length > 0 ? length : kPiece;
}

void AppendRepaired(std::string_view bytes, std::string& utf8) {
    while (!bytes.empty()) {
        const std::size_t valid = ValidUtf8Length(bytes);
        utf8.append(bytes.substr(0, valid));
        bytes.remove_prefix(valid);
        if (bytes.empty()) return;
        AppendUtf8(kReplacementCharacter, utf8);
        bytes.remove_prefix(BrokenUtf8Length(bytes));
    }
}

void AppendUtf16(std::string_view bytes, bool big_endian, std::string& utf8) {
    const auto unit_at = [bytes, big_endian](std::size_t at) {
        const auto first = static_cast<unsigned char>(bytes[at]);
        const auto second = static_cast<unsigned char>(bytes[at + 1]);
        return static_cast<char32_t>(big_endian ? first << 8 | second : second << 8 | first);
    };
    for (std::size_t at = 0; at + 1 < bytes.size(); at += 2) {
        const char32_t unit = unit_at(at);
        const bool high = unit >= 0xD800 && unit < 0xDC00;
        const char32_t low = high && at + 3 < bytes.size() ? unit_at(at + 2) : 0;
        if (low >= 0xDC00 && low < 0xE000) {
            AppendUtf8(0x10000 + ((unit - 0xD800) << 10) + (low - 0xDC00), utf8);
            at += 2;
        } else {
            AppendUtf8(unit, utf8);  // Half a pair by itself becomes the replacement character.
        }
    }
}

}  // namespace

Decoder::Decoder(const Charset& charset) : family_(charset.family) {
    if (family_ != Family::kAsciiBased && family_ != Family::kEscaped) return;
    host_ = std::make_unique<SystemConverter>(charset);
    if (!host_->Works()) family_ = Family::kWindows1252;
}

bool Decoder::KeepsMarkup() const {
    return family_ == Family::kUtf8 || family_ == Family::kWindows1252 ||
           family_ == Family::kAsciiBased;
}

std::size_t Decoder::DecodeSome(std::string_view bytes, std::string& utf8) {
    if (KeepsMarkup()) bytes = bytes.substr(0, PieceLength(bytes, family_));
    switch (family_) {
        case Family::kUtf8:
            AppendRepaired(bytes, utf8);
            break;
        case Family::kWindows1252:
            for (const char byte : bytes) {
                AppendUtf8(Windows1252(static_cast<unsigned char>(byte)), utf8);
            }
            break;
        case Family::kAsciiBased:
        case Family::kEscaped:
            host_->Append(bytes, utf8);
            break;
        case Family::kUtf16LittleEndian:
        case Family::kUtf16BigEndian:
            AppendUtf16(bytes, family_ == Family::kUtf16BigEndian, utf8);
            break;
    }
    return bytes.size();
}

}  // namespace page_text
