#pragma once

#include <cstddef>
#include <new>
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
    /// What the text takes, the eaten part with it.
    std::size_t BytesHeld() const { return bytes_.size(); }

    /// Replaces the whole text, and begins a new generation of it.
    void Assign(std::string bytes) {
        Replace(std::move(bytes));
        ++generation_;
    }

    /// Tells whoever lets events run in the middle of work on the text whether it is still the same
    /// text, appended to or further eaten perhaps, or was replaced by another.
    unsigned Generation() const { return generation_; }

    /// Empties the text and gives its memory back.
    void Clear() { Assign(std::string()); }

    void Append(std::string_view more) {
        const std::size_t needed = bytes_.size() + more.size();
        if (needed > bytes_.capacity() && needed > kLarge) GrowFor(needed);
        bytes_.append(more);
    }

    /// Drops the first `count` characters, or all when there are fewer.
    void Consume(std::size_t count) {
        if (count < Size()) {
            eaten_ += count;
        } else {
            Replace(std::string());
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
    /// From here on a text grows by a quarter: the next doubling might be more than there is.
    static constexpr std::size_t kLarge = std::size_t{16} << 20;

    /// Growing holds the old text beside the new one for a moment. A text of this size therefore
    /// grows only once more: room that is not written to takes no memory yet.
    static constexpr std::size_t kHuge = std::size_t{512} << 20;
    static constexpr std::size_t kRoomForHuge = std::size_t{1} << 31;

    void GrowFor(std::size_t needed) {
        const std::size_t quarter_more = needed + needed / 4;
        if (needed < kHuge || needed > kRoomForHuge) return GrowTo(quarter_more);
        try {
            GrowTo(kRoomForHuge);
        } catch (const std::bad_alloc&) {  // where even room has to be paid for
            GrowTo(quarter_more);
        }
    }

    /// A string doubles when it is asked to reserve more, so a fresh one is filled.
    void GrowTo(std::size_t capacity) {
        std::string grown;
        grown.reserve(capacity);
        grown.append(bytes_);
        bytes_.swap(grown);
    }

    /// The old text's memory is given back, which moving a short text in would not do.
    void Replace(std::string bytes) {
        bytes_.swap(bytes);
        eaten_ = 0;
    }

    std::string bytes_;
    std::size_t eaten_ = 0;
    unsigned generation_ = 0;
};

}  // namespace text
