#include "platform/path_text.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

using platform::HostPathOf;
using platform::PathTextOf;
using platform::ResolvePathText;
using namespace std::string_literals;

namespace {

TEST(PathText, OnePlaceHasOneText) {
    const struct {
        std::string path, resolved;
    } cases[] = {
        {"C:\\Websites\\", "c:\\Websites"},
        {"c:\\a\\\\b\\.\\c\\", "c:\\a\\b\\c"},
        {"c:\\a\\nowhere\\..\\b", "c:\\a\\b"},
        {"c:\\a\\..\\..\\..\\b", "c:\\b"},
        {"c:\\..", "c:"},
        {"c:..\\a", "c:\\a"},
        {"\\..\\etc\\passwd", "z:\\etc\\passwd"},
        {"\\", "z:"},
        {"Z:\\srv", "z:\\srv"},
        {"/srv/a/../b", "z:\\srv\\b"},
        {"c:\\a/..\\../b", "c:\\b"},
        {"mirror\\x", "c:\\mirror\\x"},
        {"c:\\a\\ ..\\...\\.x", "c:\\a\\ ..\\...\\.x"},
        {"c:\\a\\d:\\b", "c:\\a\\d:\\b"},
        {"c:\\\xff\xfe", "c:\\\xff\xfe"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(ResolvePathText(c.path), c.resolved) << c.path;
    }
}

TEST(PathText, WhatIsNoPathGivesNothing) {
    for (const std::string& path : {""s, "c:\\a\0b"s, "\0"s, "d:\\a"s, "Q:"s}) {
        EXPECT_EQ(ResolvePathText(path), std::nullopt) << path;
        EXPECT_EQ(HostPathOf(path), std::nullopt) << path;
    }
}

TEST(PathText, ParentStopsAtTheRoot) {
    EXPECT_EQ(platform::ParentOfResolved("c:\\a\\b"), "c:\\a");
    EXPECT_EQ(platform::ParentOfResolved("c:\\a"), "c:");
    EXPECT_EQ(platform::ParentOfResolved("c:"), "c:");
}

TEST(PathText, DrivesAreTheHomeFolderAndTheRoot) {
    const char* set = std::getenv("HOME");
    const std::string home = set != nullptr ? set : "";
    setenv("HOME", "/home/some body", 1);
    const struct {
        std::string path, host_path;
    } cases[] = {
        {"C:\\Websites\\", "/home/some body/Websites"},
        {"c:\\", "/home/some body"},
        {"c:\\..\\..\\x", "/home/some body/x"},
        {"z:\\", "/"},
        {"\\srv\\mirror\\", "/srv/mirror"},
        {"z:\\c:\\x", "/c:/x"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(HostPathOf(c.path), c.host_path) << c.path;
    }
    setenv("HOME", "", 1);
    EXPECT_EQ(HostPathOf("c:")->front(), '/');
    setenv("HOME", home.c_str(), 1);
}

TEST(PathText, HostPathsBecomeText) {
    const std::string here = std::filesystem::current_path().string();
    const struct {
        std::string host_path, host_path_again;
    } cases[] = {
        {"/srv/mirror", "/srv/mirror"},   {"/", "/"},
        {"mirror", here + "/mirror"},     {"./a/../b", here + "/b"},
        {"\\srv\\mirror", "/srv/mirror"}, {"z:\\srv", "/srv"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(HostPathOf(PathTextOf(c.host_path)), c.host_path_again) << c.host_path;
    }
    EXPECT_EQ(PathTextOf("/srv/mirror"), "\\srv\\mirror");
}

}  // namespace
