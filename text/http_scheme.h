#pragma once

#include <string_view>

#include "text/text.h"

namespace text {

/// The scheme that an address may begin with.
inline constexpr std::string_view kHttp = "http://";

/// Whether `address` begins with "http://", in any case.
inline bool HasHttp(std::string_view address) {
    return LowerCase(Left(address, kHttp.size())) == kHttp;
}

/// `address` without a leading "http://", in any case.
inline std::string_view WithoutHttp(std::string_view address) {
    return HasHttp(address) ? address.substr(kHttp.size()) : address;
}

}  // namespace text
