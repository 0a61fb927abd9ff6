#include "engine/typed_address.h"

#include <gtest/gtest.h>

namespace {

/// Stands in for the toolkit's conversion to ASCII.
std::string Ascii(const std::string& host) {
    return host == "www.b\u00fccher.test" ? "www.xn--bcher-kva.test" : "";
}

bas_Connections::AddressFault FaultOf(const std::string& typed) {
    return bas_Connections::FaultOfTypedAddress(typed, Ascii);
}

TEST(TypedAddress, HasNoFaultIfItMayBeFound) {
    for (const char* typed :
         {"", "http", "http:", "http:/", "http://", " HTTP://Site.com/a ", "www.", "site.com",
          "www.site.com./", "127.0.0.1/www.x", "site.com/a:b@c?u=https://x y/..", "site.com\\a b",
          "http.com/a", "https.com", "my_host/", "site.com//a", "http://site.com/b\xc3\xbc"}) {
        EXPECT_EQ(FaultOf(typed).what, "") << typed;
    }
}

TEST(TypedAddress, HasAFaultAndPerhapsACorrection) {
    constexpr const char* kHttp = "This program fetches http:// only";
    constexpr const char* kBeginning = "The address must start with \"http://\"";
    constexpr const char* kSlash = "A \"/\" is missing after the host name";
    const struct {
        const char *typed, *what, *instead, *offered;
    } cases[] = {
        {"https://", kHttp, "http://", "http://"},
        {" HTTPS://Site.com/a b ", kHttp, "http://Site.com/a b", "http://"},
        {"https:www.x", kHttp, "http://www.x", "http://"},
        {"https//www.x", kHttp, "http://www.x", "http://"},
        {"http://https://x.com", kHttp, "http://x.com", "http://"},
        {"www.https://x.com", kHttp, "http://x.com", "http://"},
        {"ftp://x.com/a", kHttp, "http://x.com/a", "http://"},
        {"file:///home/ann", kHttp, "", ""},
        {"http:/www.x", kBeginning, "http://www.x", "http://"},
        {"http:www.x", kBeginning, "http://www.x", "http://"},
        {"http:\\\\www.x\\a", kBeginning, "http://www.x\\a", "http://"},
        {"http:///x.com", kBeginning, "http://x.com", "http://"},
        {"http//x.com", kBeginning, "http://x.com", "http://"},
        {"//x.com/a", kBeginning, "http://x.com/a", "http://"},
        {"http://HTTP://x.com", kBeginning, "http://x.com", "http://"},
        {"x.com?a=b/c", kSlash, "x.com/?a=b/c", "x.com/"},
        {"http://x.com#a", kSlash, "http://x.com/#a", "x.com/"},
        {"me:secret@x.com/a", "Logins are not supported", "x.com/a", "x.com"},
        {"Http://x.com:80/a", "Leave out the port: it is always 80", "Http://x.com/a", "x.com"},
        {"x.com:8080/a", "Leave out the port: it is always 80", "", ""},
        {"www. x .com/a b", "A host name cannot contain blanks", "www.x.com/a b", "www.x.com"},
        {"x.com\t", "A host name cannot contain blanks", "x.com", "x.com"},
        {"many words", "A host name cannot contain blanks", "", ""},
        {"http://www.b\u00fccher.test/\u00fc", "Host names must be in ASCII",
         "http://www.xn--bcher-kva.test/\xc3\xbc", "www.xn--bcher-kva.test"},
        {"\xff.test", "This is not a valid host name", "", ""},
        {"www...x.com", "The host name has too many dots", "www.x.com", "www.x.com"},
        {"www,x.com", "A host name cannot contain \",\"", "", ""}};
    for (const auto& c : cases) {
        const auto fault = FaultOf(c.typed);
        EXPECT_EQ(fault.what, c.what) << c.typed;
        EXPECT_EQ(fault.instead, c.instead) << c.typed;
        EXPECT_EQ(fault.offered, c.offered) << c.typed;
    }
}

}  // namespace
