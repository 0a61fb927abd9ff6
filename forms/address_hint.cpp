#include "forms/address_hint.h"

#include "engine/site_start.h"
#include "text/text.h"

namespace ui {

namespace {

/// What stands in front of the first "/" of an address without its scheme: the web server.
std::string ServerOf(const std::string& address) {
    return address.substr(0, address.find('/'));
}

/// What of `typed` this program does not do; "" when it does it all.
std::string Warning(const std::string& typed, const std::string& server) {
    const std::size_t scheme_end = typed.find("://");
    if (scheme_end < typed.find('/') && text::LowerCase(typed.substr(0, scheme_end)) != "http") {
        return "Only http:// is fetched. ";
    }
    if (text::Contains(server, "@")) return "There are no logins. ";
    if (text::Contains(server, ":")) return "Only port 80 is asked. ";
    return {};
}

}  // namespace

std::string AddressHint(const std::string& typed) {
    const std::string address = bas_Connections::CleanTypedAddress(typed);
    const std::string server = ServerOf(address);
    if (server == "www.") return "No web site is named here yet.";
    return Warning(std::string(text::Trim(typed)), server) + "It will ask for http://" + address;
}

}  // namespace ui
