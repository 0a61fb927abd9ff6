#include "page_text/attributes.h"

#include <algorithm>

#include "page_text/ascii.h"

namespace page_text {

void AttributeReader::SkipSpace() {
    while (at_ < markup_.size() && IsMarkupSpace(markup_[at_])) {
        ++at_;
    }
}

bool AttributeReader::Next() {
    while (at_ < markup_.size() && (IsMarkupSpace(markup_[at_]) || markup_[at_] == '/')) {
        ++at_;
    }
    if (at_ == markup_.size()) return false;
    if (markup_[at_] == '>') {
        ++at_;
        closed_ = true;
        return false;
    }
    // A leading "=" belongs to the name, so a name has at least one character and every call
    // advances.
    const std::size_t begin = at_++;
    while (at_ < markup_.size() && !IsMarkupSpace(markup_[at_]) && markup_[at_] != '/' &&
           markup_[at_] != '>' && markup_[at_] != '=') {
        ++at_;
    }
    name_ = markup_.substr(begin, at_ - begin);
    value_ = {};
    SkipSpace();
    if (at_ < markup_.size() && markup_[at_] == '=') {
        ++at_;
        ReadValue();
    }
    return true;
}

void AttributeReader::ReadValue() {
    SkipSpace();
    if (at_ == markup_.size()) return;
    const char quote = markup_[at_];
    if (quote == '"' || quote == '\'') {
        const std::size_t begin = at_ + 1;
        const std::size_t end = std::min(markup_.find(quote, begin), markup_.size());
        value_ = markup_.substr(begin, end - begin);
        at_ = std::min(end + 1, markup_.size());
        return;
    }
    const std::size_t begin = at_;
    while (at_ < markup_.size() && !IsMarkupSpace(markup_[at_]) && markup_[at_] != '>') {
        ++at_;
    }
    value_ = markup_.substr(begin, at_ - begin);
}

}  // namespace page_text
