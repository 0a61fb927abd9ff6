#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "page_text/elements.h"

namespace page_text {

/// How text inside an element is shown. Passed on to the elements in it.
struct TextState {
    bool shown = true;
    bool keeps_spaces = false;

    bool operator==(const TextState&) const = default;
};

/// An element whose end tag is still to come.
struct OpenElement {
    ElementId id = kOtherElement;
    Display display = Display::kInline;
    TextState content;
    bool has_part = false;           ///< A table's first row or a row's first cell has come.
    std::uint32_t next_outward = 0;  ///< The index of the next of its name; 0 for none.
};

/// The elements around the current position that matter to the text, outermost first. At the bottom
/// is the page itself, which is never taken off. Every step takes the same time, however deep.
class OpenElements {
  public:
    OpenElements() { stack_.emplace_back(); }

    OpenElement& Top() { return stack_.back(); }
    const OpenElement& Top() const { return stack_.back(); }
    std::size_t Depth() const { return stack_.size(); }
    OpenElement& At(std::size_t index) { return stack_[index]; }

    /// The index of the innermost open element of this name; 0 when none is open.
    std::size_t Innermost(ElementId id) const { return innermost_[id]; }

    /// An element that lies too deep is not remembered: a bound to the memory that a page can
    /// claim.
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
