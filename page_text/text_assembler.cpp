#include "page_text/text_assembler.h"

#include <algorithm>

namespace page_text {

namespace {

bool Collapses(char c) {
    return c == ' ' || c == '\n' || c == '\t' || c == '\r';
}

}  // namespace

void TextAssembler::AppendPendingBreaks() {
    // Nothing stands above the first line.
    if (!text_.empty()) text_.append(static_cast<std::size_t>(pending_breaks_), '\n');
    pending_breaks_ = 0;
}

void TextAssembler::Append(std::string_view visible) {
    AppendPendingBreaks();
    if (pending_space_) text_ += ' ';
    pending_space_ = false;
    text_ += visible;
    at_line_start_ = false;
}

void TextAssembler::Text(std::string_view utf8, Spaces spaces) {
    if (spaces == Spaces::kKeep) return KeptText(utf8);
    for (std::size_t at = 0; at < utf8.size();) {
        const std::size_t begin = at;
        while (at < utf8.size() && !Collapses(utf8[at])) {
            ++at;
        }
        if (at > begin) Append(utf8.substr(begin, at - begin));
        for (; at < utf8.size() && Collapses(utf8[at]); ++at) {
            if (spaces == Spaces::kKeepBreaks && utf8[at] == '\n') {
                LineBreak();
            } else if (!at_line_start_) {
                pending_space_ = true;
            }
        }
    }
}

/// A line end in the page's source is CR LF, CR or LF.
void TextAssembler::KeptText(std::string_view utf8) {
    for (std::size_t at = 0; at < utf8.size();) {
        const std::size_t end = std::min(utf8.find_first_of("\r\n", at), utf8.size());
        if (end > at) {
            Append(utf8.substr(at, end - at));
            after_return_ = false;
        }
        if (end < utf8.size()) {
            if (utf8[end] == '\r' || !after_return_) LineBreak();
            after_return_ = utf8[end] == '\r';
        }
        at = end + 1;
    }
}

void TextAssembler::LineBreak() {
    Separator('\n');
}

void TextAssembler::Separator(char separator) {
    pending_space_ = false;
    AppendPendingBreaks();
    text_ += separator;
    at_line_start_ = true;
}

void TextAssembler::BlockEdge(int lines) {
    pending_breaks_ = std::max(pending_breaks_, lines);
    pending_space_ = false;
    at_line_start_ = true;
    after_return_ = false;
}

void TextAssembler::OpenBox() {
    if (pending_space_) Append("");
    at_line_start_ = true;
}

void TextAssembler::CloseBox() {
    pending_space_ = false;
    at_line_start_ = false;
}

}  // namespace page_text
