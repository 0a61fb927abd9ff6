#include <windows.h>

#include <shlwapi.h>
// shlwapi.h defines a macro with this name.
#undef StrFormatByteSize

#include <array>

#include "platform/byte_size.h"

namespace platform {

std::string StrFormatByteSize(std::int32_t bytes) {
    std::array<char, 32> buffer{};
    StrFormatByteSizeA(static_cast<DWORD>(bytes), buffer.data(), buffer.size());
    return buffer.data();
}

}  // namespace platform
