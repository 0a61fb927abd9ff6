#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

namespace page_text {

/// Joins the pieces of a page as they appear on the screen: collapses white space and separates
/// lines, rows and cells.
class TextAssembler {
  public:
    /// Reserves room for `expected_size` bytes.
    explicit TextAssembler(std::size_t expected_size) { text_.reserve(expected_size); }

    /// Appends running text in UTF-8. Any run of white space becomes one blank, or none at the ends
    /// of a line.
    void Text(std::string_view utf8);
    /// The same, but keeps all white space.
    void KeptText(std::string_view utf8);

    /// An explicit line break.
    void LineBreak();

    /// The edge of a block: the text after it starts at least `lines` lines below the text before.
    /// 0 is for blocks that a row break or a tab separates. Of adjacent edges, only the widest
    /// counts.
    void BlockEdge(int lines);

    /// Separate two cells of a row, and two rows of a table.
    void Tab() { Separator('\t'); }
    void RowBreak() { Separator('\n'); }

    /// The edges of a box that is placed in the line like a letter.
    void OpenBox();
    void CloseBox();

    /// Moves the text out.
    std::string Take() { return std::move(text_); }

  private:
    void AppendPendingBreaks();
    void Append(std::string_view visible);
    void Separator(char separator);

    std::string text_;
    int pending_breaks_ = 0;      // Line ends due before the next visible piece.
    bool pending_space_ = false;  // A blank is due if text follows in this line.
    bool at_line_start_ = true;   // White space is dropped at the start of a line.
};

}  // namespace page_text
