#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "page_text/elements.h"
#include "page_text/text_assembler.h"

namespace page_text {

/// How text inside an element is shown. Passed on to the elements in it.
struct TextState {
    Spaces spaces = Spaces::kCollapse;
    bool displayed = true;  ///< False inside what is not displayed: nothing in it can be.
    bool visible = true;    ///< False while visibility is hidden, which an inner element can undo.
    bool foreign = false;   ///< True in a drawing or formula.
    /// The list box, drawing or fold around, while in none of the parts that it shows.
    ElementId unshown_in = kOtherElement;

    bool Shown() const { return displayed && visible && unshown_in == kOtherElement; }
    bool operator==(const TextState&) const = default;
};

/// An element whose end tag is still to come.
struct OpenElement {
    ElementId id = kOtherElement;
    Display display = Display::kInline;
    bool shown = true;  ///< The element itself; of its content tells `content`.
    TextState content;
    bool has_part = false;  ///< A table's first row, a row's first cell, a fold's title is there.
};

/// The elements around the current position that matter to the text, outermost first. At the bottom
/// is the page itself, which is never taken off.
class OpenElements {
  public:
    /// Browsers build pages no deeper either. It bounds the cost of a search, too.
    static constexpr std::size_t kMaxDepth = 512;

    OpenElements() {
        stack_.reserve(kMaxDepth);
        stack_.emplace_back();
    }

    bool Full() const { return stack_.size() == kMaxDepth; }
    bool Holds(ElementId id) const { return counts_[id] > 0; }
    OpenElement& Top() { return stack_.back(); }
    const OpenElement& Top() const { return stack_.back(); }
    std::size_t Depth() const { return stack_.size(); }
    OpenElement& At(std::size_t index) { return stack_[index]; }

    void Push(const OpenElement& element);
    OpenElement Pop();

    /// The index of the innermost open element for which `wanted(id)` holds, when no element for
    /// which `barrier(id)` holds lies inside it.
    template <typename Wanted, typename Barrier>
    std::optional<std::size_t> Find(Wanted wanted, Barrier barrier) const {
        for (std::size_t index = stack_.size() - 1; index > 0; --index) {
            if (wanted(stack_[index].id)) return index;
            if (barrier(stack_[index].id)) break;
        }
        return std::nullopt;
    }

  private:
    std::vector<OpenElement> stack_;
    std::array<std::uint16_t, kElementCount + 1> counts_{};
};

}  // namespace page_text
