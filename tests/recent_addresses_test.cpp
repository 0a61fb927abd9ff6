#include "setup/recent_addresses.h"

#include <gtest/gtest.h>

#include <string>

#include "setup/settings.h"
#include "tests/fakes/fake_system.h"

using bas_General::NoteAddress;
using bas_General::RecentAddresses;
using Texts = std::vector<std::string>;

namespace {

TEST(RecentAddresses, TheLastOneUsedComesFirstAndOnce) {
    const fakes::FakeSystem system;
    EXPECT_EQ(RecentAddresses(), Texts{});
    for (const std::string& typed :
         {std::string("  HTTP://www.a.com/x y "), std::string("b.com"),
          std::string("www.a.com/x y"), std::string("http://"), std::string("  "),
          std::string("c.com\nd.com"), std::string(1001, 'e')}) {
        NoteAddress(typed);
    }
    EXPECT_EQ(RecentAddresses(), (Texts{"www.a.com/x y", "b.com"}));
}

TEST(RecentAddresses, KeepsTheLastFifty) {
    const fakes::FakeSystem system;
    for (int i = 0; i < 60; ++i)
        NoteAddress(std::to_string(i) + ".com");
    EXPECT_EQ(RecentAddresses().size(), 50U);
    EXPECT_EQ(RecentAddresses().front(), "59.com");
    EXPECT_EQ(RecentAddresses().back(), "10.com");
}

}  // namespace
