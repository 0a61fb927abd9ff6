#pragma once

#include <string>
#include <string_view>

#include "page_text/charsets.h"

namespace page_text {

/// The system's own converter from one encoding to UTF-8.
class SystemConverter {
  public:
    explicit SystemConverter(const Charset& charset);
    ~SystemConverter();
    SystemConverter(const SystemConverter&) = delete;
    SystemConverter& operator=(const SystemConverter&) = delete;

    /// False when this system cannot convert the encoding.
    bool Works() const;

    /// Appends `bytes` as UTF-8; what is no character becomes the replacement character.
    void Append(std::string_view bytes, std::string& utf8);

  private:
#ifdef _WIN32
    unsigned code_page_;
    std::wstring wide_;
#else
    void* handle_;
#endif
};

/// `utf8` in the local 8-bit encoding.
std::string ToLocalEncoding(std::string utf8);

}  // namespace page_text
