#pragma once

#include <cstddef>
#include <string_view>

namespace page_text {

/// Reads the attributes of a tag one by one, and thereby finds where the tag ends: a ">" inside a
/// quoted value does not end it.
class AttributeReader {
  public:
    /// `markup` begins right after the tag's name and may go on far beyond the tag.
    explicit AttributeReader(std::string_view markup) : markup_(markup) {}

    /// Steps to the next attribute; false at the end of the tag or of the markup.
    bool Next();

    /// The attribute's name as written.
    std::string_view Name() const { return name_; }
    /// Its value without quotes, as written; "" when it has none.
    std::string_view Value() const { return value_; }

    /// After the last attribute: whether the tag was ended by a ">".
    bool Closed() const { return closed_; }
    /// After the last attribute: where the markup behind the tag begins.
    std::size_t End() const { return at_; }

  private:
    void SkipSpace();
    void ReadValue();

    std::string_view markup_;
    std::size_t at_ = 0;
    std::string_view name_, value_;
    bool closed_ = false;
};

}  // namespace page_text
