#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace page_text {

/// The encoding declared near the start of an HTML page, as written; "" if there is none.
std::string_view DeclaredCharset(std::string_view page);

/// The text of a file as UTF-8 without a byte order mark; nothing if `bytes` are that already. The
/// encoding is that of the byte order mark, else `declared` if it is known, else UTF-8 if the bytes
/// are valid, else Windows-1252.
std::optional<std::string> DecodeFile(std::string_view bytes, std::string_view declared = {});

}  // namespace page_text
