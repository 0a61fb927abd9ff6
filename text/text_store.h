#pragma once

#include <algorithm>
#include <cstddef>
#include <deque>
#include <string>
#include <string_view>

namespace text {

/// Stores many short texts that are freed all at once. A text takes no more than its own length and
/// never moves.
class TextStore {
  public:
    /// A copy of `text`, valid until `Clear`.
    std::string_view Keep(std::string_view text) {
        if (text.empty()) return {};
        if (blocks_.empty() || blocks_.back().capacity() - blocks_.back().size() < text.size()) {
            blocks_.emplace_back().reserve(std::max(kBlockSize, text.size()));
        }
        // A string does not move within its capacity.
        std::string& block = blocks_.back();
        block.append(text);
        return std::string_view(block).substr(block.size() - text.size());
    }

    void Clear() { blocks_.clear(); }

  private:
    static constexpr std::size_t kBlockSize = std::size_t{64} << 10;
    std::deque<std::string> blocks_;
};

}  // namespace text
