#pragma once

#include <cstddef>
#include <string_view>

namespace page_text {

/// A start or end tag, as views into the page.
struct Tag {
    bool is_end = false;
    bool self_closing = false;
    std::string_view name;        ///< As written, case included.
    std::string_view attributes;  ///< What follows the name, for an AttributeReader.
};

/// Cuts a page into text and tags, dropping comments and declarations. Whatever a construct that is
/// never closed has swallowed is gone, as in a browser, so the page is gone through once.
///
/// Works on the undecoded bytes: in every encoding it is used with, the characters of markup are
/// single bytes that occur in no other character.
class Tokenizer {
  public:
    enum class Kind { kText, kTag, kEnd };

    explicit Tokenizer(std::string_view page) : page_(page) {}

    /// Steps to the next piece of the page.
    Kind Next();

    /// The piece, after Next has told its kind. Text is never empty.
    std::string_view Text() const { return text_; }
    const Tag& LastTag() const { return tag_; }

    /// How much of the page has been gone through.
    std::size_t Position() const { return at_; }

    /// Takes what follows up to the end tag of `element`, in which nothing else is markup, and the
    /// end tag with it.
    std::string_view TakeRawText(std::string_view element);
    /// The same for a script, where an end tag may stand inside a comment that holds a script.
    std::string_view TakeScript();
    /// Takes all the rest.
    std::string_view TakeRest();

    /// Whether <![CDATA[ ]]> is text, as in drawings, and not a comment.
    void SetCharacterData(bool is_text) { character_data_ = is_text; }

  private:
    bool StartsMarkup(std::size_t less_than) const;
    bool ReadMarkup();
    void SkipComment();
    bool ReadTag(std::size_t name_begin, bool is_end);
    bool IsTagOf(std::size_t less_than, std::string_view prefix, std::string_view element) const;
    std::string_view TakeUntilTag(std::size_t end);

    std::string_view page_;
    std::size_t at_ = 0;
    std::string_view text_;
    Tag tag_;
    bool character_data_ = false;
};

}  // namespace page_text
