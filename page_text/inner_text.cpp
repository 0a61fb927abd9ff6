#include "page_text/inner_text.h"

#include <optional>
#include <utility>

#include "page_text/charset.h"
#include "page_text/page_reader.h"
#include "page_text/system_encodings.h"
#include "text/text.h"

namespace page_text {

std::string InnerTextOfMarkup(std::string_view file_bytes, const std::function<void()>& yield) {
    const std::optional<std::string> decoded = DecodeFile(file_bytes, DeclaredCharset(file_bytes));
    return ToLocalEncoding(PageReader(decoded ? *decoded : file_bytes).Read(yield));
}

std::string InnerTextOfPlainText(std::string file_bytes) {
    if (std::optional<std::string> decoded = DecodeFile(file_bytes)) {
        file_bytes = *std::move(decoded);
    }
    text::ReplaceAllIn(file_bytes, "\r\n", "\n");
    text::ReplaceAllIn(file_bytes, "\r", "\n");
    return ToLocalEncoding(std::move(file_bytes));
}

}  // namespace page_text
