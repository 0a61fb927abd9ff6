#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace page_text {

/// What stands for a byte or a number that is no character.
inline constexpr char32_t kReplacementCharacter = 0xFFFD;

/// Appends `code_point` as UTF-8; a number that is no character becomes the replacement character.
void AppendUtf8(char32_t code_point, std::string& utf8);

/// How many bytes from the start of `bytes` on are whole, valid UTF-8 characters.
std::size_t ValidUtf8Length(std::string_view bytes);

/// `bytes` with a replacement character for everything that is not UTF-8.
std::string RepairedUtf8(std::string_view bytes);

std::string FromUtf16(std::string_view bytes, bool big_endian);

/// The character of byte `byte` in Windows-1252, the reading of pages that do not say theirs.
char32_t Windows1252(unsigned char byte);
std::string FromWindows1252(std::string_view bytes);

}  // namespace page_text
