#include <algorithm>
#include <array>

#include "page_text/ascii.h"
#include "page_text/attributes.h"
#include "page_text/charsets.h"
#include "page_text/tokenizer.h"
#include "page_text/utf8.h"

namespace page_text {

namespace {

// A declaration counts this far into a page, and further only while the page is still in its head.
constexpr std::size_t kDeclarationReach = 1024;

/// The label in "text/html; charset=LABEL"; "" when there is none.
std::string_view LabelInContentType(std::string_view content) {
    static constexpr std::string_view kWord = "charset";
    for (std::size_t at = 0; at + kWord.size() < content.size(); ++at) {
        if (!EqualsIgnoringCase(content.substr(at, kWord.size()), kWord)) continue;
        std::string_view rest = TrimMarkupSpace(content.substr(at + kWord.size()));
        if (!rest.starts_with('=')) continue;
        rest = TrimMarkupSpace(rest.substr(1));
        if (rest.starts_with('"') || rest.starts_with('\'')) {
            return rest.substr(1, rest.find(rest[0], 1) - 1);
        }
        return rest.substr(0, rest.find_first_of("; \t\r\n\f"));
    }
    return {};
}

/// The label that a meta tag with these attributes declares; "" when it declares none.
std::string_view LabelInMeta(std::string_view attributes) {
    std::string_view charset, content;
    bool is_content_type = false;
    for (AttributeReader reader(attributes); reader.Next();) {
        if (EqualsIgnoringCase(reader.Name(), "charset")) charset = reader.Value();
        if (EqualsIgnoringCase(reader.Name(), "content")) content = reader.Value();
        if (EqualsIgnoringCase(reader.Name(), "http-equiv")) {
            is_content_type = EqualsIgnoringCase(reader.Value(), "content-type");
        }
    }
    if (!charset.empty()) return charset;
    return is_content_type ? LabelInContentType(content) : std::string_view{};
}

bool BelongsInHead(std::string_view element) {
    static constexpr std::array<std::string_view, 10> kHeadElements = {
        "html", "head", "meta", "title", "link", "script", "style", "base", "noscript", "object"};
    return std::any_of(kHeadElements.begin(), kHeadElements.end(),
                       [element](std::string_view e) { return EqualsIgnoringCase(element, e); });
}

/// The encoding that the page's head declares; null when it declares none that is known.
const Charset* DeclaredCharset(std::string_view page) {
    Tokenizer tokenizer(page);
    for (Tokenizer::Kind kind; (kind = tokenizer.Next()) != Tokenizer::Kind::kEnd;) {
        if (kind != Tokenizer::Kind::kTag) continue;
        const Tag& tag = tokenizer.LastTag();
        if (!tag.is_end && EqualsIgnoringCase(tag.name, "meta")) {
            if (const Charset* found = FindCharset(LabelInMeta(tag.attributes))) return found;
        }
        const bool head_ends = tag.is_end && EqualsIgnoringCase(tag.name, "head");
        if (tokenizer.Position() > kDeclarationReach && (head_ends || !BelongsInHead(tag.name))) {
            break;
        }
    }
    return nullptr;
}

}  // namespace

DetectedCharset DetectCharset(std::string_view bytes, bool is_markup) {
    using Family = Charset::Family;
    if (bytes.starts_with("\xEF\xBB\xBF")) return {{Family::kUtf8}, 3};
    if (bytes.starts_with("\xFE\xFF")) return {{Family::kUtf16BigEndian}, 2};
    if (bytes.starts_with("\xFF\xFE")) return {{Family::kUtf16LittleEndian}, 2};
    if (is_markup) {
        if (const Charset* declared = DeclaredCharset(bytes)) return {*declared};
    }
    const bool valid = ValidUtf8Length(bytes) == bytes.size();
    return {{valid ? Family::kUtf8 : Family::kWindows1252}};
}

}  // namespace page_text
