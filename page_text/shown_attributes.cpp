#include "page_text/shown_attributes.h"

#include "page_text/ascii.h"
#include "page_text/attributes.h"

namespace page_text {

namespace {

bool IsLeftOrRight(std::string_view value) {
    return EqualsIgnoringCase(value, "left") || EqualsIgnoringCase(value, "right");
}

bool StandsInLine(Display display) {
    return display == Display::kInline || display == Display::kInlineBox ||
           display == Display::kReplaced;
}

}  // namespace

ShownAttributes ReadAttributes(const Tag& tag) {
    ShownAttributes read;
    bool has_style = false;
    for (AttributeReader reader(tag.attributes); reader.Next();) {
        const std::string_view name = reader.Name();
        if (EqualsIgnoringCase(name, "style") && !has_style) {
            read.style = ParseInlineStyle(reader.Value());
            has_style = true;
        } else if (EqualsIgnoringCase(name, "hidden")) {
            read.hidden = true;
        } else if (EqualsIgnoringCase(name, "open")) {
            read.open = true;
        } else if (EqualsIgnoringCase(name, "align")) {
            read.aligned = IsLeftOrRight(reader.Value());
        } else if (EqualsIgnoringCase(name, "type") && EqualsIgnoringCase(tag.name, "input")) {
            read.hidden = read.hidden || EqualsIgnoringCase(reader.Value(), "hidden");
        }
    }
    return read;
}

Display OwnDisplay(ElementId id, const ShownAttributes& attributes) {
    if (attributes.hidden || (id == Id("dialog") && !attributes.open)) return Display::kNone;
    const Element element = ElementOf(id);
    return attributes.aligned && (element.traits & kFloats) != 0 ? Display::kBlock
                                                                 : element.display;
}

Display StyledDisplay(Display own, const InlineStyle& style) {
    Display display = own;
    // The others are what they are by more than their style.
    const bool can_change = own == Display::kInline || own == Display::kInlineBox ||
                            own == Display::kBlock || own == Display::kNone;
    if (style.display && (can_change || *style.display == Display::kNone)) display = *style.display;
    return style.out_of_line && StandsInLine(display) ? Display::kBlock : display;
}

void ApplyStyle(const InlineStyle& style, TextState& state) {
    if (style.visible) state.visible = *style.visible;
    if (style.spaces) state.spaces = *style.spaces;
}

}  // namespace page_text
