#include "platform/qt/qt_process_starter.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QFile>
#include <QTemporaryDir>

#include "tests/qt/real_bench.h"

namespace {

/// A stand-in for the explorer is beside this program. It writes its command line to a file.
class QtProcessStarterTest : public testing::Test {
  protected:
    QtProcessStarterTest() {
        qputenv("windir", QCoreApplication::applicationDirPath().toLocal8Bit());
        qputenv("STAND_IN_WRITES", file_.toLocal8Bit());
    }
    ~QtProcessStarterTest() override { qputenv("windir", windir_); }

    /// The command line of the last start, without the program's name.
    QString Words() {
        QFile file(file_);
        const auto is_there = [&] { return file.open(QIODevice::ReadOnly); };
        if (!clock_.RunUntil(is_there)) return "nothing started";
        const QString line = QString::fromLocal8Bit(file.readAll());
        file.remove();
        return line.section("explorer.exe", 1).remove(0, 1).trimmed();
    }

    QByteArray windir_ = qgetenv("windir");
    QTemporaryDir folder_;
    QString file_ = folder_.filePath("started");
    real::Clock clock_;
    platform::QtProcessStarter starter_;
};

TEST_F(QtProcessStarterTest, PassesAFolderAsOneQuotedWord) {
    EXPECT_TRUE(starter_.ExploreFolder("c:\\my mirror,/e & calc %windir% ^\\"));
    EXPECT_EQ(Words(), "\"c:\\my mirror,\\e & calc %windir% ^\"");
    EXPECT_FALSE(starter_.ExploreFolder(""));
}

TEST_F(QtProcessStarterTest, OpensOnlyWebAddressesEncoded) {
    const QFile stand_in(QCoreApplication::applicationDirPath() + "/explorer.exe");
    if (QFile("c:\\windows\\explorer.exe").size() != stand_in.size())
        GTEST_SKIP() << "this is the system's own explorer";
    EXPECT_TRUE(starter_.OpenAddress("HTTP://site.com/a b?x=<y>&\"z\"^%windir%,/e"));
    EXPECT_EQ(Words(), "\"http://site.com/a%20b?x=%3Cy%3E&%22z%22%5E%25windir%25,/e\"");
    for (const std::string address : {"", "calc.exe", "file:///c:/windows/notepad.exe",
                                      "https://site.com", "\" calc", "/select,c:\\"}) {
        EXPECT_FALSE(starter_.OpenAddress(address)) << address;
    }
}

}  // namespace
