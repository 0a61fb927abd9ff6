#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// Literal text routines on byte strings. One character is one byte, any byte may occur (NUL too),
/// every search is exact, and positions are counted from 1 with 0 meaning "not there".
namespace text {

/// Position of the first `pattern` in `subject` at or after position `from`, or 0.
/// An empty pattern is never found.
std::size_t InStr(std::string_view subject, std::string_view pattern, std::size_t from = 1);

bool Contains(std::string_view subject, std::string_view pattern);

/// The characters from position `start` on, at most `length` of them; "" past the end.
/// A `start` of 0 gives the text from its beginning.
std::string_view Mid(std::string_view subject, std::size_t start,
                     std::size_t length = std::string_view::npos);

/// The first `length` characters, or all of them when there are fewer.
std::string_view Left(std::string_view subject, std::size_t length);

/// `subject` without leading and trailing blanks. Only the blank (0x20) counts, no other white
/// space.
std::string_view Trim(std::string_view subject);

/// A to Z become a to z; every other byte stays, so multi-byte characters survive.
std::string LowerCase(std::string_view subject);

/// a to z become A to Z; every other byte stays.
std::string UpperCase(std::string_view subject);

/// Replaces every `pattern` by `replacement`, left to right in one pass: what a replacement makes
/// is not looked at again. Works in place and linearly. False when the pattern does not occur; then
/// nothing is moved.
bool ReplaceAllIn(std::string& subject, std::string_view pattern, std::string_view replacement);

/// The same on a copy.
std::string ReplaceAll(std::string subject, std::string_view pattern, std::string_view replacement);

}  // namespace text
