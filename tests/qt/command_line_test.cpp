#include "ui/command_line.h"

#include <gtest/gtest.h>

#include <QProcess>
#include <QProcessEnvironment>
#include <QTest>
#include <csignal>

#include "tests/fakes/temp_folder.h"

using Action = ui::CommandLine::Action;

namespace {

/// Words stand between single blanks; between two blanks is an empty one.
ui::CommandLine Read(const QString& words) {
    return ui::ReadCommandLine(("vantorin " + words).split(' '));
}

const QString kCrawl = "--site www.site.com --folder /srv/mirror ";

}  // namespace

TEST(CommandLine, RefusesWhatItCannotRead) {
    for (const QString& words :
         {QString("--site www.site.com"), QString("--site"), QString("--site  --folder /srv"),
          QString("--site www.site.com --folder "), QString("--connections 4"),
          QString("--depth 4"), kCrawl + "more", kCrawl + "--connections 0",
          kCrawl + "--connections 25", kCrawl + "--connections 2.5", kCrawl + "--timeout -1",
          kCrawl + "--timeout soon", kCrawl + "--timeout 1e300"}) {
        const ui::CommandLine line = Read(words);
        EXPECT_EQ(line.action, Action::Print) << words.toStdString();
        EXPECT_EQ(line.exit_code, 2) << words.toStdString();
        EXPECT_TRUE(line.text.contains("--help")) << words.toStdString();
    }
}

TEST(CommandLine, ReadsAnOrder) {
    EXPECT_EQ(ui::ReadCommandLine({"vantorin"}).action, Action::OpenWindow);
    const ui::CommandLine plain = Read(kCrawl.trimmed());
    ASSERT_EQ(plain.action, Action::Crawl);
    EXPECT_EQ(plain.order.site, "www.site.com");
    EXPECT_EQ(plain.order.connections, 4);
    EXPECT_EQ(plain.order.timeout_milliseconds, 15000);
    const ui::CommandLine full =
        Read("--site=a.com --folder=C:\\Web --connections=24 --timeout=.5");
    EXPECT_EQ(full.order.folder, "C:\\Web");
    EXPECT_EQ(full.order.connections, 24);
    EXPECT_EQ(full.order.timeout_milliseconds, 500);
}

/// The real program.
class Program : public testing::Test {
  protected:
    Program() {
        for (const char* display : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
            environment.remove(display);
    }
    void Start(const QString& words) {
        program.setProcessEnvironment(environment);
        program.start(VANTORIN_PROGRAM, words.split(' ', Qt::SkipEmptyParts));
    }

    const fakes::TempFolder folder;
    /// A crawl into that folder from an address of this machine at which nobody answers.
    const QString order = "--site 127.77.77.77/www.test --timeout 0.05 --folder " +
                          QString::fromStdString(folder.HostPath());
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    QProcess program;
};

TEST_F(Program, SaysHowItWentAndExitsWithACode) {
    const struct {
        QString words;
        int code;
        const char* out;
        const char* err;
    } cases[] = {
        {"--help", 0, "--connections", ""},
        {"--version", 0, "Vantorin Website Downloader 1.9", ""},
        {"--site www.site.com", 2, "", "--folder"},
        {"", 1, "", "no display"},
        {order + "/new", 0, "The website has been downloaded.", ""},
        {order + "/a&b", 1, "characters", ""},
        {"--site www.site.com --folder /proc/nowhere", 1, "invalid directory", ""},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.words.toStdString());
        Start(c.words);
        ASSERT_TRUE(program.waitForFinished());
        EXPECT_EQ(program.exitStatus(), QProcess::NormalExit);
        EXPECT_EQ(program.exitCode(), c.code);
        EXPECT_TRUE(program.readAllStandardOutput().contains(c.out));
        EXPECT_TRUE(program.readAllStandardError().contains(c.err));
    }
    EXPECT_TRUE(std::filesystem::is_directory(folder.HostPath() / "new"));
    EXPECT_FALSE(std::filesystem::exists(folder.HostPath() / "a_b")) << "made elsewhere";

    environment.insert("QT_QPA_PLATFORM", "none-such");
    Start("");
    ASSERT_TRUE(program.waitForFinished());
    EXPECT_EQ(program.exitCode(), 1);
    EXPECT_TRUE(program.readAllStandardError().contains("no display"));
}

#ifndef _WIN32
TEST_F(Program, EndsTidilyOnASignal) {
    for (const auto& [signal, code] : {std::pair(SIGINT, 130), std::pair(SIGTERM, 143)}) {
        Start(order + " --timeout 15");
        ASSERT_TRUE(program.waitForReadyRead()) << "it says how far it is";
        kill(static_cast<pid_t>(program.processId()), signal);
        ASSERT_TRUE(program.waitForFinished());
        EXPECT_EQ(program.exitStatus(), QProcess::NormalExit);
        EXPECT_EQ(program.exitCode(), code);
    }
}
#endif
