#pragma once

#include <cstddef>
#include <string_view>

namespace page_text {

/// A start or end tag, as views into the page.
struct Tag {
    std::string_view name;        ///< As written, case included.
    std::string_view attributes;  ///< Everything after the name, for an AttributeReader.
};

/// Splits a page into text, tags and declarations, and drops comments. An unclosed construct
/// swallows the rest of the page, as in a browser, so one pass is enough.
class Tokenizer {
  public:
    enum class Kind { kText, kStartTag, kEndTag, kDeclaration, kEnd };

    explicit Tokenizer(std::string_view page) : page_(page) {}

    /// Advances to the next piece of the page.
    Kind Next();

    /// The current piece, of the kind that Next returned. Text is never empty; the text of a
    /// declaration is what is between "<!" and ">".
    std::string_view Text() const { return text_; }
    const Tag& LastTag() const { return tag_; }

    /// The number of bytes read so far.
    std::size_t Position() const { return at_; }

    /// Returns everything up to the end tag of `element`, in which nothing else is markup. Skips
    /// the end tag, too.
    std::string_view TakeRawText(std::string_view element);
    /// Skips a line end if one comes next.
    void SkipLineEnd();

  private:
    bool StartsMarkup(std::size_t less_than) const;
    Kind ReadMarkup();
    bool ReadTag(std::size_t name_begin);
    bool IsEndTagOf(std::string_view element, std::size_t less_than) const;

    std::string_view page_;
    std::size_t at_ = 0;
    std::string_view text_;
    Tag tag_;
};

}  // namespace page_text
