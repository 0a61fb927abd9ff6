#pragma once

#include <optional>
#include <string_view>

namespace text {

/// Iterates over the fields of a text split at `separator` (one character). Blanks at both ends of
/// the text are ignored. The text must outlive the walker and must not change.
class FieldWalker {
  public:
    FieldWalker(std::string_view text, std::string_view separator);

    /// The next field, which may be empty; nothing after the last.
    std::optional<std::string_view> Next();

  private:
    std::optional<std::string_view> rest_;
    std::string_view separator_;
};

}  // namespace text
