#pragma once

#include <functional>
#include <string>

namespace bas_Connections {

/// Why a typed address cannot be fetched, and what was probably meant.
struct AddressFault {
    std::string what;     ///< a sentence without a full stop; "" if the address may be fetched
    std::string instead;  ///< the address without this fault; "" if it cannot be guessed
    std::string offered;  ///< a short name for `instead`: its server or its scheme
};

/// Returns a host's name as name servers know it, in ASCII; "" if it cannot be a host's name.
using AsciiHost = std::function<std::string(const std::string& host)>;

/// The first fault of a typed address. A crawl starts with such an address as with any other; this
/// only informs the user. Another fault may show once this one is fixed.
AddressFault FaultOfTypedAddress(const std::string& typed, const AsciiHost& ascii_host);

}  // namespace bas_Connections
