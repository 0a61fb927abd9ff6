#include "platform/qt/qt_process_starter.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>
#include <tuple>

#include "tests/qt/real_bench.h"

namespace {

/// Puts a stand-in for the desktop's opener first on the PATH. It writes its arguments to a file,
/// one per line, in brackets.
class QtProcessStarterTest : public testing::Test {
  protected:
    QtProcessStarterTest() {
        QFile opener(folder_.filePath("xdg-open"));
        EXPECT_TRUE(opener.open(QIODevice::WriteOnly));
        opener.write("#!/bin/sh\ncd ${0%/*}; printf '[%s]\\n' \"$@\" > part; mv part arguments\n");
        opener.setPermissions(QFile::ReadOwner | QFile::ExeOwner);
        qputenv("PATH", folder_.path().toLocal8Bit() + ":" + path_);
    }
    ~QtProcessStarterTest() override { qputenv("PATH", path_); }

    /// The opener's arguments since the last call.
    std::string Arguments() {
        QFile file(folder_.filePath("arguments"));
        if (!clock_.RunUntil([&] { return file.exists(); })) return "nothing started";
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        const std::string arguments = file.readAll().toStdString();
        file.remove();
        return arguments;
    }

    QByteArray path_ = qgetenv("PATH");
    QTemporaryDir folder_;
    real::Clock clock_;
    platform::QtProcessStarter starter_;
};

}  // namespace

TEST_F(QtProcessStarterTest, PassesAFolderAsOneArgument) {
    EXPECT_TRUE(starter_.ExploreFolder("z:\\--my mirror $(id);`id`\\\"'"));
    EXPECT_EQ(Arguments(), "[/--my mirror $(id);`id`/\"']\n");
    EXPECT_FALSE(starter_.ExploreFolder(""));
}

TEST_F(QtProcessStarterTest, OpensAPageAtItsWords) {
    const std::tuple<const char*, const char*, const char*> cases[] = {
        {"\\a b#c?d%e\\x.html", "one two-fold, & \xC3\xA9",
         "file:///a%20b%23c%3Fd%25e/x.html#:~:text=one%20two%2Dfold%2C%20%26%20%C3%A9"},
        {"\\\xFF.php_a=1.HTM.html", "x", "file:///%FF.php_a%3D1.HTM.html#:~:text=x"},
        {"\\x.html", "", "/x.html"},
        {"\\x.html\\notes.txt", "x", "/x.html/notes.txt"},  // browsers do not open this
    };
    for (const auto& [file, words, opened] : cases) {
        EXPECT_TRUE(starter_.OpenPage(file, words));
        EXPECT_EQ(Arguments(), "[" + std::string(opened) + "]\n");
    }
    EXPECT_FALSE(starter_.OpenPage("", "x"));
}

TEST_F(QtProcessStarterTest, OpensOnlyWebAddressesEncoded) {
    EXPECT_TRUE(starter_.OpenAddress("HTTP://site.com/a b?x=<y>&\"z\""));
    EXPECT_EQ(Arguments(), "[http://site.com/a%20b?x=%3Cy%3E&%22z%22]\n");
    for (const std::string address :
         {"", "site.com", "http:///etc", "file:///etc/passwd", "https://site.com",
          "-x http://site.com", " http://site.com", "http://a b/", "http://site.com\n--option"}) {
        if (starter_.OpenAddress(address)) {
            ADD_FAILURE() << address << " opened as " << Arguments();
        }
    }
}

TEST_F(QtProcessStarterTest, ReportsThatThereIsNoOpener) {
    qputenv("PATH", "/nowhere");
    EXPECT_FALSE(starter_.ExploreFolder("\\srv"));
    EXPECT_FALSE(starter_.OpenAddress("http://site.com"));
}
