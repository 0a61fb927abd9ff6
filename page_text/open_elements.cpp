#include "page_text/open_elements.h"

#include <cassert>

namespace page_text {

void OpenElements::Push(const OpenElement& element) {
    assert(!Full());
    stack_.push_back(element);
    ++counts_[element.id];
}

OpenElement OpenElements::Pop() {
    assert(stack_.size() > 1);
    const OpenElement popped = stack_.back();
    stack_.pop_back();
    --counts_[popped.id];
    return popped;
}

}  // namespace page_text
