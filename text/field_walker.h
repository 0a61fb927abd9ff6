#pragma once

#include <optional>
#include <string_view>

namespace text {

/// The fields of a text split at `separator` (one character), one after the other; blanks around
/// the text are no part of it. The text must stay as it is meanwhile.
class FieldWalker {
  public:
    FieldWalker(std::string_view text, std::string_view separator);

    /// The next field, an empty one too; nothing after the last.
    std::optional<std::string_view> Next();

  private:
    std::optional<std::string_view> rest_;
    std::string_view separator_;
};

}  // namespace text
