#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

namespace page_text {

/// Puts the pieces of a page together as they stand on the screen: collapses white space, and
/// keeps lines, rows and cells apart.
class TextAssembler {
  public:
    /// `expected_size` is what to make room for.
    explicit TextAssembler(std::size_t expected_size) { text_.reserve(expected_size); }

    /// Running text in UTF-8: any run of white space is one blank, and none at the ends of a line.
    void Text(std::string_view utf8);
    /// The same with all white space kept.
    void KeptText(std::string_view utf8);

    /// An explicit line break.
    void LineBreak();

    /// The edge of a block: what follows stands at least `lines` lines below what came, 0 for a
    /// block that is set apart by a row break or a tab. Edges that meet count once, the widest.
    void BlockEdge(int lines);

    /// Between two cells of a row, and between two rows of a table.
    void Tab() { Separator('\t'); }
    void RowBreak() { Separator('\n'); }

    /// The edges of a box that stands in the line like a letter.
    void OpenBox();
    void CloseBox();

    /// The text so far, which is given away.
    std::string Take() { return std::move(text_); }

  private:
    void AppendPendingBreaks();
    void Append(std::string_view visible);
    void Separator(char separator);

    std::string text_;
    int pending_breaks_ = 0;      // Line ends owed before the next visible piece.
    bool pending_space_ = false;  // White space seen: shown if text follows in the line.
    bool at_line_start_ = true;   // White space here would be at the start of a line.
};

}  // namespace page_text
