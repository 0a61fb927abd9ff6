#pragma once

#include <functional>
#include <string>

namespace bas_Connections {

/// Why nothing can come of an address that was typed, and what was probably meant.
struct AddressFault {
    std::string what;     ///< a sentence without its full stop; "" when the address may be found
    std::string instead;  ///< the address without this fault; "" where nobody could guess it
    std::string offered;  ///< what names `instead` in a few words: its server, or its scheme
};

/// Gives the name of a host in the letters that it is asked for with; "" when it cannot be one.
using AsciiHost = std::function<std::string(const std::string& host)>;

/// The first fault of an address as it was typed. The crawl starts with such an address as with any
/// other: this is for telling whoever typed it. Another fault may show once one is mended.
AddressFault FaultOfTypedAddress(const std::string& typed, const AsciiHost& ascii_host);

}  // namespace bas_Connections
