#pragma once

#include <cstddef>
#include <new>
#include <string>
#include <string_view>
#include <utility>

namespace text {

/// A text that grows at its end and is consumed from its front.
///
/// The link scanner consumes a page while events run that may append to the same text or empty it.
/// Consuming moves an offset, so each step is free. The offset is kept here beside the bytes, so
/// that a new text leaves no stale position behind in a caller's loop.
class ConsumableText {
  public:
    ConsumableText() = default;
    explicit ConsumableText(std::string bytes) : bytes_(std::move(bytes)) {}

    /// What is left. The view is valid until the text changes, so it must not be kept while events
    /// run.
    std::string_view View() const { return std::string_view(bytes_).substr(eaten_); }
    std::size_t Size() const { return bytes_.size() - eaten_; }
    bool Empty() const { return Size() == 0; }
    /// The bytes held, including the consumed part.
    std::size_t BytesHeld() const { return bytes_.size(); }

    /// Replaces the whole text and starts a new generation.
    void Assign(std::string bytes) {
        Replace(std::move(bytes));
        ++generation_;
    }

    /// A number that changes when the text is replaced, but not when the text grows or is consumed.
    /// Code that lets events run compares the number before and after.
    unsigned Generation() const { return generation_; }

    /// Empties the text and frees its memory.
    void Clear() { Assign(std::string()); }

    void Append(std::string_view more) {
        const std::size_t needed = bytes_.size() + more.size();
        if (needed > bytes_.capacity() && needed > kLarge) GrowFor(needed);
        bytes_.append(more);
    }

    /// Drops the first `count` characters, or all if there are fewer.
    void Consume(std::size_t count) {
        if (count < Size()) {
            eaten_ += count;
        } else {
            Replace(std::string());
        }
    }

    /// What is left, as a plain string that may be edited in place. Erases the consumed part.
    std::string& Edit() {
        bytes_.erase(0, eaten_);
        eaten_ = 0;
        return bytes_;
    }

  private:
    /// Above this size a text grows by a quarter: doubling might exceed the available memory.
    static constexpr std::size_t kLarge = std::size_t{16} << 20;

    /// While a text grows, the old and the new one exist side by side. A text of this size
    /// therefore reserves its maximum at once: memory that is never written to costs nothing yet.
    static constexpr std::size_t kHuge = std::size_t{512} << 20;
    static constexpr std::size_t kRoomForHuge = std::size_t{1} << 31;

    void GrowFor(std::size_t needed) {
        const std::size_t quarter_more = needed + needed / 4;
        if (needed < kHuge || needed > kRoomForHuge) return GrowTo(quarter_more);
        try {
            GrowTo(kRoomForHuge);
        } catch (const std::bad_alloc&) {  // the system commits memory when it is reserved
            GrowTo(quarter_more);
        }
    }

    /// `reserve` on an existing string may double it, so a new string is filled instead.
    void GrowTo(std::size_t capacity) {
        std::string grown;
        grown.reserve(capacity);
        grown.append(bytes_);
        bytes_.swap(grown);
    }

    /// Swaps, because move-assigning a short text would keep the old text's memory.
    void Replace(std::string bytes) {
        bytes_.swap(bytes);
        eaten_ = 0;
    }

    std::string bytes_;
    std::size_t eaten_ = 0;
    unsigned generation_ = 0;
};

}  // namespace text
