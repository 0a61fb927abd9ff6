#include "page_text/tokenizer.h"

#include <algorithm>

#include "page_text/ascii.h"
#include "page_text/attributes.h"

namespace page_text {

namespace {

/// The position after the next `pattern`, or the end of `page` if there is none.
std::size_t After(std::string_view page, std::string_view pattern, std::size_t from) {
    const std::size_t found = page.find(pattern, from);
    return found == std::string_view::npos ? page.size() : found + pattern.size();
}

bool EndsTagName(char c) {
    return IsMarkupSpace(c) || c == '/' || c == '>';
}

}  // namespace

/// Whether the "<" at `less_than` starts a tag, a comment or a declaration; otherwise it is text.
bool Tokenizer::StartsMarkup(std::size_t less_than) const {
    if (less_than + 1 >= page_.size()) return false;
    const char next = page_[less_than + 1];
    return IsLetter(next) || next == '!' || next == '?' ||
           (next == '/' && less_than + 2 < page_.size());
}

Tokenizer::Kind Tokenizer::Next() {
    while (at_ < page_.size()) {
        if (page_[at_] == '<' && StartsMarkup(at_)) {
            const Kind kind = ReadMarkup();
            if (kind != Kind::kEnd) return kind;
            continue;
        }
        std::size_t end = page_.find('<', at_ + 1);
        while (end != std::string_view::npos && !StartsMarkup(end)) {
            end = page_.find('<', end + 1);
        }
        text_ = page_.substr(at_, end - at_);
        at_ += text_.size();
        return Kind::kText;
    }
    return Kind::kEnd;
}

/// Reads the markup at the current position. Returns kEnd for a comment or other markup that yields
/// nothing.
Tokenizer::Kind Tokenizer::ReadMarkup() {
    const char next = page_[at_ + 1];
    if (IsLetter(next)) return ReadTag(at_ + 1) ? Kind::kStartTag : Kind::kEnd;
    if (next == '/' && IsLetter(page_[at_ + 2]))
        return ReadTag(at_ + 2) ? Kind::kEndTag : Kind::kEnd;
    // The closing dashes may be the opening ones: "<!-->" is a complete comment.
    const bool is_comment = page_.compare(at_, 4, "<!--") == 0;
    const std::size_t begin = at_ + 2;
    at_ = After(page_, is_comment ? "-->" : ">", begin);
    if (next != '!' || is_comment) return Kind::kEnd;
    text_ = page_.substr(begin, at_ - begin - 1);
    return Kind::kDeclaration;
}

/// Reads the tag whose name starts at `name_begin`; false if the page ends inside it.
bool Tokenizer::ReadTag(std::size_t name_begin) {
    std::size_t name_end = name_begin;
    while (name_end < page_.size() && !EndsTagName(page_[name_end])) {
        ++name_end;
    }
    AttributeReader attributes(page_.substr(name_end));
    while (attributes.Next()) {
    }
    at_ = name_end + attributes.End();
    tag_ = {page_.substr(name_begin, name_end - name_begin),
            page_.substr(name_end, attributes.End())};
    return attributes.Closed();
}

bool Tokenizer::IsEndTagOf(std::string_view element, std::size_t less_than) const {
    const std::size_t name = less_than + 2;
    const std::size_t end = name + element.size();
    return end < page_.size() && page_[less_than + 1] == '/' && EndsTagName(page_[end]) &&
           EqualsIgnoringCase(page_.substr(name, element.size()), element);
}

std::string_view Tokenizer::TakeRawText(std::string_view element) {
    std::size_t end = page_.find('<', at_);
    while (end != std::string_view::npos && !IsEndTagOf(element, end)) {
        end = page_.find('<', end + 1);
    }
    const std::string_view taken = page_.substr(at_, end - at_);
    at_ = std::min(end, page_.size());
    if (at_ < page_.size()) ReadTag(at_ + 2);
    return taken;
}

void Tokenizer::SkipLineEnd() {
    if (page_.compare(at_, 1, "\r") == 0) ++at_;
    if (page_.compare(at_, 1, "\n") == 0) ++at_;
}

}  // namespace page_text
