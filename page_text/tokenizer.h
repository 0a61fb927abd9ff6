#pragma once

#include <cstddef>
#include <string_view>

namespace page_text {

/// A start or end tag, as views into the page.
struct Tag {
    std::string_view name;        ///< As written, case included.
    std::string_view attributes;  ///< What follows the name, for an AttributeReader.
};

/// Cuts a page into text, tags and declarations, dropping comments. Whatever a construct that is
/// never closed has swallowed is gone, as in a browser, so the page is gone through once.
class Tokenizer {
  public:
    enum class Kind { kText, kStartTag, kEndTag, kDeclaration, kEnd };

    explicit Tokenizer(std::string_view page) : page_(page) {}

    /// Steps to the next piece of the page.
    Kind Next();

    /// The piece, after Next has told its kind. Text is never empty; that of a declaration is what
    /// stands between "<!" and ">".
    std::string_view Text() const { return text_; }
    const Tag& LastTag() const { return tag_; }

    /// How much of the page has been gone through.
    std::size_t Position() const { return at_; }

    /// Takes what follows up to the end tag of `element`, in which nothing else is markup, and the
    /// end tag with it.
    std::string_view TakeRawText(std::string_view element);
    /// Passes over a line end, if one is next.
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
