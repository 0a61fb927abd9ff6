#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

namespace text {

/// A text that is appended to at its end and eaten from its front.
///
/// The link scanner steps through a page by dropping what it has seen, while data may be appended
/// to the same text, or the text be emptied, whenever events run. Keeping the eaten part as an
/// offset makes each step cost nothing, and keeping the offset here, beside the bytes, means that
/// whoever assigns a new text cannot leave a stale position behind in somebody's loop.
class ConsumableText {
  public:
    ConsumableText() = default;
    explicit ConsumableText(std::string bytes) : bytes_(std::move(bytes)) {}

    /// What is left. Valid until the text is next changed, so never across a place where events
    /// run.
    std::string_view View() const { return std::string_view(bytes_).substr(eaten_); }
    std::size_t Size() const { return bytes_.size() - eaten_; }
    bool Empty() const { return Size() == 0; }

    /// Replaces the whole text. The old one's memory is given back, which moving a short text in
    /// would not do.
    void Assign(std::string bytes) {
        bytes_.swap(bytes);
        eaten_ = 0;
    }

    /// Empties the text and gives its memory back.
    void Clear() { Assign(std::string()); }

    void Append(std::string_view more) { bytes_.append(more); }

    /// Drops the first `count` characters, or all when there are fewer.
    void Consume(std::size_t count) {
        if (count < Size()) {
            eaten_ += count;
        } else {
            Clear();
        }
    }

    /// The text as one plain string that may be edited in place (what was eaten is really gone
    /// then).
    std::string& Edit() {
        bytes_.erase(0, eaten_);
        eaten_ = 0;
        return bytes_;
    }

  private:
    std::string bytes_;
    std::size_t eaten_ = 0;
};

}  // namespace text
