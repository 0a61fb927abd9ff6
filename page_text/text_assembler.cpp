#include "page_text/text_assembler.h"

#include <algorithm>

namespace page_text {

namespace {

bool Collapses(char c) {
    return c == ' ' || c == '\n' || c == '\t' || c == '\r';
}

/// The end of the text from `begin` on that needs no change: words separated by single blanks.
std::size_t EndOfPlainWords(std::string_view text, std::size_t begin) {
    const auto is_letter = [](char c) { return static_cast<unsigned char>(c) > ' '; };
    std::size_t at = begin;
    for (; at < text.size(); ++at) {
        if (is_letter(text[at]) || !Collapses(text[at])) continue;
        const bool is_single_blank =
            text[at] == ' ' && at > begin && at + 1 < text.size() && !Collapses(text[at + 1]);
        if (!is_single_blank) break;
    }
    return at;
}

}  // namespace

void TextAssembler::AppendPendingBreaks() {
    if (pending_breaks_ == 0) return;
    // No empty lines before the first line.
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

void TextAssembler::Text(std::string_view utf8) {
    for (std::size_t at = 0; at < utf8.size();) {
        const std::size_t begin = at;
        at = EndOfPlainWords(utf8, begin);
        if (at > begin) Append(utf8.substr(begin, at - begin));
        for (; at < utf8.size() && Collapses(utf8[at]); ++at) {
            pending_space_ = !at_line_start_;
        }
    }
}

void TextAssembler::KeptText(std::string_view utf8) {
    for (std::size_t at = 0; at < utf8.size();) {
        const std::size_t end = std::min(utf8.find_first_of("\r\n", at), utf8.size());
        if (end > at) Append(utf8.substr(at, end - at));
        if (end < utf8.size()) LineBreak();
        const bool is_pair = utf8.substr(end, 2) == "\r\n";
        at = end + (is_pair ? 2 : 1);
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
