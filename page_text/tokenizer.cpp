#include "page_text/tokenizer.h"

#include <algorithm>

#include "page_text/ascii.h"
#include "page_text/attributes.h"

namespace page_text {

namespace {

constexpr std::string_view kCharacterDataStart = "<![CDATA[";

/// The position after the next `pattern`, or the end of `page`.
std::size_t After(std::string_view page, std::string_view pattern, std::size_t from) {
    const std::size_t found = page.find(pattern, from);
    return found == std::string_view::npos ? page.size() : found + pattern.size();
}

}  // namespace

/// True when the "<" at `less_than` begins a tag, a comment or a declaration; else it is text.
bool Tokenizer::StartsMarkup(std::size_t less_than) const {
    if (less_than + 1 >= page_.size()) return false;
    const char next = page_[less_than + 1];
    return IsLetter(next) || next == '!' || next == '?' ||
           (next == '/' && less_than + 2 < page_.size());
}

Tokenizer::Kind Tokenizer::Next() {
    while (at_ < page_.size()) {
        if (page_[at_] == '<' && StartsMarkup(at_)) {
            if (ReadMarkup()) return text_.empty() ? Kind::kTag : Kind::kText;
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

/// Reads the markup at the current position; false when it comes to nothing.
bool Tokenizer::ReadMarkup() {
    text_ = {};
    const char next = page_[at_ + 1];
    if (IsLetter(next)) return ReadTag(at_ + 1, false);
    if (next == '/' && IsLetter(page_[at_ + 2])) return ReadTag(at_ + 2, true);
    if (page_.compare(at_, 4, "<!--") == 0) {
        SkipComment();
        return false;
    }
    if (character_data_ &&
        page_.compare(at_, kCharacterDataStart.size(), kCharacterDataStart) == 0) {
        const std::size_t begin = at_ + kCharacterDataStart.size();
        const std::size_t end = std::min(page_.find("]]>", begin), page_.size());
        at_ = std::min(end + 3, page_.size());
        text_ = page_.substr(begin, end - begin);
        return !text_.empty();
    }
    at_ = After(page_, ">", at_);
    return false;
}

/// A comment ends at "-->" or "--!>", and "<!-->" and "<!--->" are whole ones.
void Tokenizer::SkipComment() {
    const std::size_t body = at_ + 4;
    for (const std::string_view whole : {">", "->"}) {
        if (page_.compare(body, whole.size(), whole) == 0) {
            at_ = body + whole.size();
            return;
        }
    }
    std::size_t dashes = page_.find("--", body);
    while (dashes != std::string_view::npos) {
        const std::string_view behind = page_.substr(dashes + 2, 2);
        if (behind.starts_with('>') || behind == "!>") {
            at_ = dashes + (behind.starts_with('>') ? 3 : 4);
            return;
        }
        dashes = page_.find("--", dashes + 1);
    }
    at_ = page_.size();
}

bool Tokenizer::ReadTag(std::size_t name_begin, bool is_end) {
    std::size_t name_end = name_begin;
    while (name_end < page_.size() && !IsMarkupSpace(page_[name_end]) && page_[name_end] != '/' &&
           page_[name_end] != '>') {
        ++name_end;
    }
    AttributeReader attributes(page_.substr(name_end));
    while (attributes.Next()) {
    }
    at_ = name_end + attributes.End();
    tag_ = {is_end, attributes.SelfClosing(), page_.substr(name_begin, name_end - name_begin),
            page_.substr(name_end, attributes.End())};
    return attributes.Closed();
}

/// True when at `less_than` stands `prefix` ("<" or "</") and `element`'s whole name.
bool Tokenizer::IsTagOf(std::size_t less_than, std::string_view prefix,
                        std::string_view element) const {
    const std::size_t name = less_than + prefix.size();
    const std::size_t end = name + element.size();
    return page_.compare(less_than, prefix.size(), prefix) == 0 && end < page_.size() &&
           EqualsIgnoringCase(page_.substr(name, element.size()), element) &&
           (IsMarkupSpace(page_[end]) || page_[end] == '/' || page_[end] == '>');
}

/// Takes the text up to the tag at `end`, and the tag.
std::string_view Tokenizer::TakeUntilTag(std::size_t end) {
    const std::string_view taken = page_.substr(at_, end - at_);
    at_ = std::min(end, page_.size());
    if (at_ < page_.size()) ReadTag(at_ + 2, true);
    return taken;
}

std::string_view Tokenizer::TakeRawText(std::string_view element) {
    std::size_t end = page_.find('<', at_);
    while (end != std::string_view::npos && !IsTagOf(end, "</", element)) {
        end = page_.find('<', end + 1);
    }
    return TakeUntilTag(end);
}

std::string_view Tokenizer::TakeScript() {
    bool in_comment = false;
    bool in_inner_script = false;
    std::size_t comment_end = 0;  // Where the comment that was entered last ends.
    std::size_t end = page_.find('<', at_);
    for (; end != std::string_view::npos; end = page_.find('<', end + 1)) {
        if (in_comment && end >= comment_end) in_comment = in_inner_script = false;
        if (!in_comment && page_.compare(end, 4, "<!--") == 0) {
            in_comment = true;
            comment_end = After(page_, "-->", end + 2);
        } else if (in_comment && IsTagOf(end, "<", "script")) {
            in_inner_script = true;
        } else if (IsTagOf(end, "</", "script")) {
            if (!in_inner_script) break;
            in_inner_script = false;
        }
    }
    return TakeUntilTag(end);
}

std::string_view Tokenizer::TakeRest() {
    const std::string_view rest = page_.substr(at_);
    at_ = page_.size();
    return rest;
}

}  // namespace page_text
