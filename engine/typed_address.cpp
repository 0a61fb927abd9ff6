#include "engine/typed_address.h"

#include <algorithm>
#include <optional>
#include <string_view>
#include <utility>

#include "text/ascii.h"
#include "text/http_scheme.h"
#include "text/text.h"

namespace bas_Connections {

namespace {

constexpr std::string_view kSlashes = "/\\";
constexpr char kHttpOnly[] = "This program fetches http:// only";
constexpr char kTwoSlashes[] = "The address must start with \"http://\"";

bool IsLetterOrDigit(char c) {
    return text::IsLetter(c) || (c >= '0' && c <= '9');
}

bool IsBlank(char c) {
    return (c >= 0 && c <= ' ') || c == 0x7f;
}

bool IsBeyondAscii(char c) {
    return static_cast<unsigned char>(c) > 0x7f;
}

/// The part of an address before its server, or in place of it.
struct Scheme {
    std::string word;    ///< lower-cased; "" if there are only slashes
    bool colon = false;  ///< whether a ":" follows the word
    std::string_view slashes;
    std::string_view rest;
};

/// The scheme of `address`; nothing if it starts with the server's name, as in "site.com:8080".
std::optional<Scheme> SchemeOf(std::string_view address) {
    const auto word_end = std::ranges::find_if_not(address, IsLetterOrDigit);
    Scheme scheme{text::LowerCase({address.begin(), word_end}), false, {}, {}};
    scheme.rest = address.substr(scheme.word.size());
    if (scheme.rest.starts_with(':')) {
        scheme.colon = true;
        scheme.rest.remove_prefix(1);
    }
    const std::size_t slashes = scheme.rest.find_first_not_of(kSlashes);
    scheme.slashes = scheme.rest.substr(0, slashes);
    scheme.rest.remove_prefix(scheme.slashes.size());

    const bool of_the_web = scheme.word == "http" || scheme.word == "https";
    const bool is_scheme = scheme.colon ? of_the_web || !scheme.slashes.empty()
                                        : (of_the_web && scheme.slashes.size() > 1) ||
                                              (scheme.word.empty() && !scheme.slashes.empty());
    return is_scheme ? std::optional(scheme) : std::nullopt;
}

bool IsHttp(const Scheme& scheme) {
    return scheme.word == "http" && scheme.colon && scheme.slashes == "//";
}

AddressFault FaultOf(const Scheme& scheme) {
    const bool of_the_web = scheme.word.empty() || scheme.word == "http" || scheme.word == "https";
    const std::string instead = of_the_web || scheme.word == "ftp"
                                    ? std::string(text::kHttp).append(scheme.rest)
                                    : std::string();
    const char* what = scheme.word.empty() || scheme.word == "http" ? kTwoSlashes : kHttpOnly;
    return {what, instead, instead.empty() ? "" : std::string(text::kHttp)};
}

/// The fault in the server's name of an address without scheme. The name ends where the crawl
/// assumes its end.
AddressFault FaultOfServer(std::string_view address, const AsciiHost& ascii_host) {
    const std::string server(address.substr(0, address.find_first_of(kSlashes)));
    const std::string path(address.substr(server.size()));
    const auto offer = [&path](const char* what, const std::string& other_server) {
        return AddressFault{what, other_server + path, other_server};
    };
    if (const std::size_t end = server.find_first_of("?#"); end != server.npos) {
        return {"A \"/\" is missing after the host name",
                server.substr(0, end) + "/" + server.substr(end) + path,
                server.substr(0, end) + "/"};
    }
    if (const std::size_t at = server.rfind('@'); at != server.npos)
        return offer("Logins are not supported", server.substr(at + 1));
    if (const std::size_t colon = server.find(':'); colon != server.npos) {
        constexpr char kPort[] = "Leave out the port: it is always 80";
        const std::string port = server.substr(colon + 1);
        return port.empty() || port == "80" ? offer(kPort, server.substr(0, colon))
                                            : AddressFault{kPort, "", ""};
    }
    if (std::ranges::any_of(server, IsBlank)) {
        constexpr char kBlanks[] = "A host name cannot contain blanks";
        std::string joined = server;
        std::erase_if(joined, IsBlank);
        // Words without a dot are more likely meant for a search engine.
        return text::Contains(joined, ".") ? offer(kBlanks, joined) : AddressFault{kBlanks, "", ""};
    }
    if (std::ranges::any_of(server, IsBeyondAscii)) {
        const std::string ascii = ascii_host(server);
        return ascii.empty() ? AddressFault{"This is not a valid host name", "", ""}
                             : offer("Host names must be in ASCII", ascii);
    }
    if (text::Contains(server, "..")) {
        std::string single = server;
        while (text::ReplaceAllIn(single, "..", ".")) {
        }
        return offer("The host name has too many dots", single);
    }
    const auto stranger = std::ranges::find_if_not(
        server, [](char c) { return IsLetterOrDigit(c) || c == '-' || c == '.' || c == '_'; });
    if (stranger == server.end()) return {};
    return {std::string("A host name cannot contain \"") + *stranger + "\"", "", ""};
}

}  // namespace

AddressFault FaultOfTypedAddress(const std::string& typed, const AsciiHost& ascii_host) {
    std::string_view address = text::Trim(typed);
    // After a crawl started with another scheme, the box shows "www." in front of it.
    if (address.starts_with("www.") && SchemeOf(address.substr(4))) address.remove_prefix(4);

    std::string_view http;
    if (const auto scheme = SchemeOf(address)) {
        if (scheme->rest.empty() && text::kHttp.starts_with(text::LowerCase(address)))
            return {};  // still being typed
        if (!IsHttp(*scheme)) return FaultOf(*scheme);
        // Pasted after the "http://" that the box starts with.
        if (const auto inner = SchemeOf(scheme->rest)) return FaultOf(*inner);
        http = address.substr(0, text::kHttp.size());
        address = scheme->rest;
    }
    AddressFault fault = FaultOfServer(address, ascii_host);
    if (!fault.instead.empty()) fault.instead.insert(0, http);
    return fault;
}

}  // namespace bas_Connections
