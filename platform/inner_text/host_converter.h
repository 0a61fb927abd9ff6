#pragma once

#include <string>
#include <string_view>

#include "platform/inner_text/charsets.h"

namespace platform::inner_text {

/// The host's own converter from one encoding to UTF-8.
class HostConverter {
  public:
    explicit HostConverter(const Charset& charset);
    ~HostConverter();
    HostConverter(const HostConverter&) = delete;
    HostConverter& operator=(const HostConverter&) = delete;

    /// False when this host cannot convert the encoding.
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

}  // namespace platform::inner_text
