#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace page_text {

/// The encoding that the start of an HTML page declares, as written; "" when it declares none.
std::string_view DeclaredCharset(std::string_view page);

/// The text of a file as UTF-8 without a byte order mark; nothing when `bytes` are that already. A
/// byte order mark tells the encoding, else `declared` does if it is known, else bytes that are not
/// UTF-8 are taken for Windows-1252.
std::optional<std::string> DecodeFile(std::string_view bytes, std::string_view declared = {});

}  // namespace page_text
