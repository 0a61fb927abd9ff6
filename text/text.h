#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// Literal text routines on byte strings. One character is one byte, and any byte may occur,
/// including NUL. Searches are exact. Positions count from 1; 0 means not found.
namespace text {

/// Position of the first `pattern` in `subject` at or after position `from`, or 0. An empty pattern
/// is never found.
std::size_t InStr(std::string_view subject, std::string_view pattern, std::size_t from = 1);

bool Contains(std::string_view subject, std::string_view pattern);

/// At most `length` characters from position `start` on; "" past the end. A `start` of 0 means 1.
std::string_view Mid(std::string_view subject, std::size_t start,
                     std::size_t length = std::string_view::npos);

/// The first `length` characters, or all if there are fewer.
std::string_view Left(std::string_view subject, std::size_t length);

/// `subject` without leading and trailing blanks (0x20). Other white space stays.
std::string_view Trim(std::string_view subject);

/// Lower-cases A to Z. Every other byte stays, so multi-byte characters survive.
std::string LowerCase(std::string_view subject);

/// Upper-cases a to z; every other byte stays.
std::string UpperCase(std::string_view subject);

/// Replaces every `pattern` by `replacement`, from left to right in one pass; the replacements are
/// not searched again. Takes linear time. Returns false, and moves nothing, if the pattern does not
/// occur.
bool ReplaceAllIn(std::string& subject, std::string_view pattern, std::string_view replacement);

/// The same on a copy.
std::string ReplaceAll(std::string subject, std::string_view pattern, std::string_view replacement);

}  // namespace text
