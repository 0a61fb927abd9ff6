#pragma once

#include <cstddef>
#include <string_view>

#include "text/ascii.h"

/// The few character classes that markup needs.
namespace page_text {

using text::IsLetter;
using text::LowerLetter;

/// White space between the words of markup.
inline bool IsMarkupSpace(char c) {
    return c == ' ' || c == '\n' || c == '\r' || c == '\t' || c == '\f';
}

inline bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

/// Whether `subject` equals `lower_case`, ignoring the case of A to Z in `subject`.
inline bool EqualsIgnoringCase(std::string_view subject, std::string_view lower_case) {
    if (subject.size() != lower_case.size()) return false;
    for (std::size_t i = 0; i < subject.size(); ++i) {
        if (LowerLetter(subject[i]) != lower_case[i]) return false;
    }
    return true;
}

/// `subject` without leading and trailing white space.
inline std::string_view TrimMarkupSpace(std::string_view subject) {
    while (!subject.empty() && IsMarkupSpace(subject.front())) {
        subject.remove_prefix(1);
    }
    while (!subject.empty() && IsMarkupSpace(subject.back())) {
        subject.remove_suffix(1);
    }
    return subject;
}

}  // namespace page_text
