#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace page_text {

/// Replaces bytes and numbers that are not characters.
inline constexpr char32_t kReplacementCharacter = 0xFFFD;

/// Appends `code_point` as UTF-8; an invalid one becomes the replacement character.
void AppendUtf8(char32_t code_point, std::string& utf8);

/// The number of bytes at the start of `bytes` that are complete, valid UTF-8 characters.
std::size_t ValidUtf8Length(std::string_view bytes);

/// `bytes` with everything that is not UTF-8 replaced by the replacement character.
std::string RepairedUtf8(std::string_view bytes);

std::string FromUtf16(std::string_view bytes, bool big_endian);

/// The character for `byte` in Windows-1252, the encoding assumed for a page that declares none and
/// is not valid UTF-8.
char32_t Windows1252(unsigned char byte);
std::string FromWindows1252(std::string_view bytes);

}  // namespace page_text
