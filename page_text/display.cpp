#include "page_text/display.h"

#include <algorithm>
#include <string_view>

#include "page_text/ascii.h"
#include "page_text/attributes.h"

namespace page_text {

namespace {

/// The text up to the next `mark`, which is taken off `rest` with the mark.
std::string_view TakeUpTo(char mark, std::string_view& rest) {
    const std::size_t length = std::min(rest.find(mark), rest.size());
    const std::string_view taken = rest.substr(0, length);
    rest.remove_prefix(std::min(length + 1, rest.size()));
    return TrimMarkupSpace(taken);
}

/// What a style attribute makes of an element that is displayed as `display`.
Display StyledDisplay(Display display, std::string_view declarations) {
    while (!declarations.empty()) {
        std::string_view value = TakeUpTo(';', declarations);
        if (!EqualsIgnoringCase(TakeUpTo(':', value), "display")) continue;
        value = TakeUpTo('!', value);
        if (EqualsIgnoringCase(value, "none")) return Display::kNone;
        if (EqualsIgnoringCase(value, "block") && display == Display::kInline)
            display = Display::kBlock;
    }
    return display;
}

}  // namespace

Display DisplayOf(ElementId id, const Tag& tag) {
    Display display = ElementOf(id).display;
    std::string_view style;
    for (AttributeReader reader(tag.attributes); reader.Next();) {
        const std::string_view name = reader.Name();
        if (EqualsIgnoringCase(name, "style")) {
            style = reader.Value();
        } else if (EqualsIgnoringCase(name, "hidden")) {
            display = Display::kNone;
        } else if (EqualsIgnoringCase(name, "open") && id == Id("details")) {
            display = Display::kBlock;
        } else if (EqualsIgnoringCase(name, "type") && id == Id("input")) {
            if (EqualsIgnoringCase(reader.Value(), "hidden")) display = Display::kNone;
        }
    }
    return StyledDisplay(display, style);
}

}  // namespace page_text
