#pragma once

#include <cstddef>
#include <string_view>

namespace page_text {

/// Reads the attributes of a tag one by one. This also finds the tag's end, because a ">" in a
/// quoted value does not end it.
class AttributeReader {
  public:
    /// `markup` starts right after the tag's name and may extend beyond the tag.
    explicit AttributeReader(std::string_view markup) : markup_(markup) {}

    /// Advances to the next attribute; false at the end of the tag or of the markup.
    bool Next();

    /// The attribute's name as written.
    std::string_view Name() const { return name_; }
    /// The value as written, without quotes; "" if there is none.
    std::string_view Value() const { return value_; }

    /// After the last attribute: whether a ">" ended the tag.
    bool Closed() const { return closed_; }
    /// After the last attribute: the offset of the markup after the tag.
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
