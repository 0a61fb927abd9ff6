#pragma once

#include <string>

/// Link extraction. This file: string routines that cut, clean and resolve addresses. They work on
/// plain text, follow fixed literal rules and report no errors.
namespace bas_Extractor {

/// The characters of `s` in reverse order.
std::string ReverseText(const std::string& s);

/// `s` lower-cased and trimmed of blanks.
std::string LowerTrim(const std::string& s);

/// The last character of `s`, even a blank; "" if `s` is empty or all blanks.
std::string LastChar(const std::string& s);

/// Whether `s` ends with "/" or "\".
bool EndsWithSlash(const std::string& s);

/// The text from the last "." to the end, including the dot; all of `s` if there is none.
std::string GetExtension(const std::string& s);

/// Removes a leading "http://" (any case) and every "http:\\", and replaces "\" by "/". Returns the
/// result and stores it in `s`.
std::string StripHttp(std::string& s);

/// The address as the last part of a local path: no scheme, no "www." anywhere, "\" instead of "/".
std::string UrlToPathPart(const std::string& s);

/// Replaces every "//" after the first 7 characters (the length of a scheme) by "/", in one pass.
std::string CollapseSlashes(const std::string& s);

/// The part of `s` before the first # ' > } ; or blank.
std::string CutLinkAtDelimiter(const std::string& s);

/// The part of `s` before the first # ' > } ? / \ or blank.
std::string CutHostAtDelimiter(const std::string& s);

/// Replaces "\" by "/", then removes the first "../" after a slash. Returns the result and stores
/// it in `s`.
std::string CutDotDotOnce(std::string& s);

/// Replaces "\" by "/", then resolves every "/../" by removing the segment before it, wherever in
/// the address that segment occurs. Returns the result and stores it in `s`.
std::string ResolveDotDot(std::string& s);

/// A count with "," between groups of three digits. Stores the lower-cased, trimmed text in `s`.
std::string FormatThousands(std::string& s);

}  // namespace bas_Extractor
