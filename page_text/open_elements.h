#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "page_text/elements.h"

namespace page_text {

/// How text inside an element is shown. Child elements inherit it.
struct TextState {
    bool shown = true;
    bool keeps_spaces = false;

    bool operator==(const TextState&) const = default;
};

/// An element whose end tag has not come yet.
struct OpenElement {
    ElementId id = kOtherElement;
    Display display = Display::kInline;
    TextState content;
    bool has_part = false;           ///< Whether a table has a row, or a row has a cell.
    std::uint32_t next_outward = 0;  ///< The index of the next outer one of this name; 0 for none.
};

/// The open elements that affect the text at the current position, outermost first. The bottom
/// entry is the page itself and is never removed. Every operation takes constant time, at any
/// depth.
class OpenElements {
  public:
    OpenElements() { stack_.emplace_back(); }

    OpenElement& Top() { return stack_.back(); }
    const OpenElement& Top() const { return stack_.back(); }
    std::size_t Depth() const { return stack_.size(); }
    OpenElement& At(std::size_t index) { return stack_[index]; }

    /// The index of the innermost open element of this name; 0 if none is open.
    std::size_t Innermost(ElementId id) const { return innermost_[id]; }

    /// Ignores an element that is nested too deeply. This limits the memory that a page can claim.
    void Push(OpenElement element) {
        constexpr std::size_t kMaxDepth = 100'000;
        if (stack_.size() == kMaxDepth) return;
        element.next_outward = innermost_[element.id];
        innermost_[element.id] = static_cast<std::uint32_t>(stack_.size());
        stack_.push_back(element);
    }

    void Pop() {
        innermost_[stack_.back().id] = stack_.back().next_outward;
        stack_.pop_back();
    }

  private:
    std::vector<OpenElement> stack_;
    std::array<std::uint32_t, kElementCount + 1> innermost_{};
};

}  // namespace page_text
