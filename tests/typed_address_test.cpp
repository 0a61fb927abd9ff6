#include "engine/typed_address.h"

#include <gtest/gtest.h>

namespace {

/// Stands in for the toolkit's table of letters.
std::string Ascii(const std::string& host) {
    return host == "www.b\xc3\xbc"
                   "cher.test"
               ? "www.xn--bcher-kva.test"
               : "";
}

bas_Connections::AddressFault FaultOf(const std::string& typed) {
    return bas_Connections::FaultOfTypedAddress(typed, Ascii);
}

TEST(TypedAddress, IsLeftAloneWhereItMayBeFound) {
    for (const char* typed :
         {"", "http", "http:", "http:/", "http://", " HTTP://Site.com/a ", "www.", "site.com",
          "www.site.com./", "127.0.0.1/www.x", "site.com/a:b@c?u=https://x y/..", "site.com\\a b",
          "http.com/a", "https.com", "my_host/", "site.com//a", "http://site.com/b\xc3\xbc"}) {
        EXPECT_EQ(FaultOf(typed).what, "") << typed;
    }
}

TEST(TypedAddress, HasAFaultAndPerhapsWhatWasMeant) {
    const struct {
        const char *typed, *what, *instead, *offered;
    } cases[] = {
        {"https://", "This program fetches http:// only", "http://", "http://"},
        {" HTTPS://Site.com/a b ", "This program fetches http:// only", "http://Site.com/a b",
         "http://"},
        {"https:www.x", "This program fetches http:// only", "http://www.x", "http://"},
        {"https//www.x", "This program fetches http:// only", "http://www.x", "http://"},
        {"http://https://x.com", "This program fetches http:// only", "http://x.com", "http://"},
        {"www.https://x.com", "This program fetches http:// only", "http://x.com", "http://"},
        {"ftp://x.com/a", "This program fetches http:// only", "http://x.com/a", "http://"},
        {"file:///home/ann", "This program fetches http:// only", "", ""},
        {"http:/www.x", "An address begins with \"http://\"", "http://www.x", "http://"},
        {"http:www.x", "An address begins with \"http://\"", "http://www.x", "http://"},
        {"http:\\\\www.x\\a", "An address begins with \"http://\"", "http://www.x\\a", "http://"},
        {"http:///x.com", "An address begins with \"http://\"", "http://x.com", "http://"},
        {"http//x.com", "An address begins with \"http://\"", "http://x.com", "http://"},
        {"//x.com/a", "An address begins with \"http://\"", "http://x.com/a", "http://"},
        {"http://HTTP://x.com", "An address begins with \"http://\"", "http://x.com", "http://"},
        {"x.com?a=b/c", "A \"/\" is missing behind the server's name", "x.com/?a=b/c", "x.com/"},
        {"http://x.com#a", "A \"/\" is missing behind the server's name", "http://x.com/#a",
         "x.com/"},
        {"me:secret@x.com/a", "There are no logins", "x.com/a", "x.com"},
        {"Http://x.com:80/a", "Only port 80 is asked, and not named", "Http://x.com/a", "x.com"},
        {"x.com:8080/a", "Only port 80 is asked, and not named", "", ""},
        {"www. x .com/a b", "A server's name has no blanks", "www.x.com/a b", "www.x.com"},
        {"x.com\t", "A server's name has no blanks", "x.com", "x.com"},
        {"many words", "A server's name has no blanks", "", ""},
        {"http://www.b\xc3\xbc"
         "cher.test/\xc3\xbc",
         "Names are asked for in ASCII", "http://www.xn--bcher-kva.test/\xc3\xbc",
         "www.xn--bcher-kva.test"},
        {"\xff.test", "No server can have this name", "", ""},
        {"www...x.com", "There is a dot too many", "www.x.com", "www.x.com"},
        {"www,x.com", "No server's name has a \",\"", "", ""}};
    for (const auto& c : cases) {
        const auto fault = FaultOf(c.typed);
        EXPECT_EQ(fault.what, c.what) << c.typed;
        EXPECT_EQ(fault.instead, c.instead) << c.typed;
        EXPECT_EQ(fault.offered, c.offered) << c.typed;
    }
}

TEST(TypedAddress, OffersComeToAnEnd) {
    std::string address = "www.https://http:/ftp://me@me: x@b\xc3\xbc..c?:80 /";
    for (int offers = 0; offers < 9; ++offers) {
        const auto fault = FaultOf(address);
        if (fault.instead.empty()) return;
        EXPECT_NE(fault.instead, address);
        address = fault.instead;
    }
    ADD_FAILURE() << address;
}

}  // namespace
