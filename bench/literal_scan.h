#pragma once

#include <string>

/// A second statement of what the link scanner and admission do, step by step and as slowly as it
/// reads. Shares with the first only the mirror: what is known, and how records are written.
namespace literal {

std::string Trim(std::string s);
std::string Lower(std::string s);
/// Every `find` in `s`, from left to right in one pass, replaced.
std::string Replace(const std::string& s, const std::string& find, const std::string& with);

/// Consumes `page` and makes `base` end in "/", appending to the crawl's lists and files.
void ExtractLinks(std::string& page, std::string& base);

void AdmitLink(std::string link);

}  // namespace literal
