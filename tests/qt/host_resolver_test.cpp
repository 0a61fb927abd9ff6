#include "platform/net/host_resolver.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "tests/qt/name_server.h"
#include "tests/qt/real_bench.h"

namespace {

using namespace std::chrono_literals;

/// A minimal chroot has no hosts file.
bool HasHostsFile() {
#ifdef _WIN32
    return true;
#else
    return std::filesystem::exists("/etc/hosts");
#endif
}

/// Lets the test move its clock forward.
class AgeingResolver : public platform::HostResolver {
  public:
    using HostResolver::HostResolver;
    std::chrono::seconds passed{};

  protected:
    Clock::time_point Now() const override { return HostResolver::Now() + passed; }
};

class HostResolverTest : public testing::Test {
  protected:
    /// Looks a name up and stores the answer under `host`.
    void LookUp(const std::string& host) {
        resolver->LookUp(
            host, *receiver, [this, host](const auto& found, platform::SocketFailure why) {
                EXPECT_EQ(found.empty(), why == platform::SocketFailure::NameUnknown) << host;
                EXPECT_TRUE(answers.emplace(host, found).second) << host << " was answered twice";
            });
    }
    /// The address families found for `host`, as "4" and "6"; "-" for none.
    std::string Find(const std::string& host) {
        answers.clear();
        LookUp(host);
        if (!clock.RunUntil([&] { return !answers.empty(); })) return "no answer";
        std::string kinds;
        for (const auto& address : answers.begin()->second)
            kinds += address.storage.ss_family == AF_INET6 ? "6" : "4";
        return kinds.empty() ? "-" : kinds;
    }

    real::Clock clock;
    NameServer server;
    std::unique_ptr<AgeingResolver> resolver = std::make_unique<AgeingResolver>(server.Address());
    std::unique_ptr<QObject> receiver = std::make_unique<QObject>();
    std::map<std::string, platform::HostResolver::Addresses> answers;
};

using namespace std::string_literals;

TEST_F(HostResolverTest, FindsAddressesOfBothFamilies) {
    EXPECT_EQ(Find("www.site.test"), "4");
    EXPECT_EQ(Find("six.site.test"), "6");
    EXPECT_EQ(Find("big.site.test"), "4");
    EXPECT_EQ(Find("late.site.test"), "4");
    EXPECT_EQ(Find("no.site.test"), "-");
}

// The hosts file comes first, as everywhere on the system. Every hosts file contains "localhost".
TEST_F(HostResolverTest, AsksNoServerForKnownAndInvalidNames) {
    if (HasHostsFile()) {
        for (const char* known : {"localhost", "LocalHost."})
            EXPECT_NE(Find(known), "-") << known;
    }
    for (const char* numeric : {"127.0.0.1", "127.0.0.1."})
        EXPECT_EQ(Find(numeric), "4");
    EXPECT_EQ(Find("::1"), "6");
    for (const std::string& host :
         {""s, "."s, "a..b"s, ".a"s, "a b"s, "a\0.b"s, "127.0.0.1\0.b"s, "\xff.b"s, "a:80"s,
          "[::1]"s, "a\\.b"s, std::string(64, 'a') + ".b", std::string(70'000, 'a'),
          std::string(70'000, '1')})
        EXPECT_EQ(Find(host), "-") << host.substr(0, 80);
    EXPECT_TRUE(server.asked.empty());
}

TEST_F(HostResolverTest, UnansweredNamesDelayNoOthers) {
    for (int i = 0; i < 100; ++i)
        LookUp("silent" + std::to_string(i) + ".test");
    const std::string known = HasHostsFile() ? "localhost" : "127.0.0.1";
    LookUp(known);
    LookUp("www.site.test");
    EXPECT_TRUE(clock.RunUntil([&] { return answers.size() == 2; }));
    EXPECT_TRUE(answers.contains(known));
    EXPECT_TRUE(answers.contains("www.site.test"));
    EXPECT_EQ(server.asked.size(), 101U) << "they are asked for at the same time";
}

TEST_F(HostResolverTest, OneQuestionServesAllReceiversForAMinute) {
    const std::string spellings[] = {"www.site.test", "WWW.Site.test", "www.site.test."};
    for (const std::string& host : spellings)
        LookUp(host);
    EXPECT_TRUE(clock.RunUntil([&] { return answers.size() == 3; }));
    EXPECT_EQ(Find("www.site.test"), "4");
    resolver->passed = 30s;
    EXPECT_EQ(Find("www.site.test"), "4");
    EXPECT_EQ(server.asked, (std::map<std::string, int>{{"www.site.test", 2}}));
    resolver->passed = 61s;
    EXPECT_EQ(Find("www.site.test"), "4");
    EXPECT_EQ(server.asked["www.site.test"], 4) << "it may have moved by now";

    EXPECT_EQ(Find("no.site.test"), "-");
    EXPECT_EQ(Find("no.site.test"), "-");
    EXPECT_EQ(server.asked["no.site.test"], 4) << "it may exist by now";
}

TEST_F(HostResolverTest, AppendsSearchDomainsOnlyToNamesWithoutADot) {
    qputenv("LOCALDOMAIN", "first.test no.second.test");
    EXPECT_EQ(Find("intranet"), "4");
    EXPECT_EQ(Find("no.typo.test"), "-");
    qunsetenv("LOCALDOMAIN");
    EXPECT_EQ(server.asked,
              (std::map<std::string, int>{{"intranet.first.test", 2}, {"no.typo.test", 2}}));
}

TEST_F(HostResolverTest, ADeletedReceiverIsNotCalled) {
    for (const char* host : {"silent.test", "half.test", "www.site.test"})
        LookUp(host);
    clock.RunUntil([&] { return answers.size() == 1 && server.asked.size() == 3; });
    LookUp("www.second.test");
    receiver.reset();
    clock.RunUntil([&] { return server.asked["www.second.test"] == 2; });
    clock.Wait(50);
    receiver = std::make_unique<QObject>();
    LookUp("half.other.test");
    clock.Wait(50);
    resolver.reset();
    clock.Wait(50);
    EXPECT_EQ(answers.size(), 1U);
}

}  // namespace
