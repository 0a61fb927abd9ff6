#pragma once

#include <string>

/// Link extraction. This file: the string routines with which addresses are cut, cleaned and
/// resolved. They work on plain text, have fixed literal rules, and never report anything.
namespace bas_Extractor {

/// The characters of `s` in reverse order.
std::string ReverseText(const std::string& s);

/// `s` lower-cased, then without blanks around it.
std::string LowerTrim(const std::string& s);

/// The last character of `s` as given; "" when `s` is empty or only blanks.
std::string LastChar(const std::string& s);

/// Whether `s` ends in "/" or "\".
bool EndsWithSlash(const std::string& s);

/// From the last "." to the end, the dot included; all of `s` when it has none.
std::string GetExtension(const std::string& s);

/// Takes a leading "http://" (any case) and every "http:\\" off and turns "\" into "/". The result
/// is returned and stored back into `s`.
std::string StripHttp(std::string& s);

/// The address as the tail of a local path: no scheme, no "www." anywhere, "\" for "/".
std::string UrlToPathPart(const std::string& s);

/// Every "//" after the first 7 characters (the room of a scheme) becomes "/", in one pass.
std::string CollapseSlashes(const std::string& s);

/// What stands before the first of # ' > } blank ; in `s`.
std::string CutLinkAtDelimiter(const std::string& s);

/// What stands before the first of # ' > } ? blank / \ in `s`.
std::string CutHostAtDelimiter(const std::string& s);

/// Removes the first "../" that follows a slash. The result is returned and stored back into `s`.
std::string CutDotDotOnce(std::string& s);

/// Resolves every "/../" by removing the segment before it, wherever else in the address that text
/// stands too. The result is returned and stored back into `s`.
std::string ResolveDotDot(std::string& s);

/// A count with "," between groups of three digits. `s` receives the lower-cased, trimmed text.
std::string FormatThousands(std::string& s);

}  // namespace bas_Extractor
