#include "ui/command_line.h"

#include <gtest/gtest.h>

#include <QProcess>
#include <QProcessEnvironment>
#include <QTest>
#include <csignal>

#include "tests/fakes/temp_folder.h"

using Action = ui::CommandLine::Action;

namespace {

ui::CommandLine Read(QStringList words) {
    words.prepend("vantorin");
    return ui::ReadCommandLine(words);
}

const QStringList kCrawl = {"--site", "www.site.com", "--folder", "/srv/mirror"};

}  // namespace

TEST(CommandLine, RefusesWhatItCannotRead) {
    const QStringList bad[] = {{"--site", "www.site.com"},
                               {"--folder", "/srv/mirror"},
                               {"--site"},
                               {"--site", " ", "--folder", "/srv"},
                               {"--site", "www.site.com", "--folder", ""},
                               {"--connections", "4"},
                               {"--depth", "4"},
                               {"www.site.com"},
                               kCrawl + QStringList{"more"},
                               kCrawl + QStringList{"--connections", "0"},
                               kCrawl + QStringList{"--connections", "25"},
                               kCrawl + QStringList{"--connections", "four"},
                               kCrawl + QStringList{"--connections", "2.5"},
                               kCrawl + QStringList{"--timeout", "-1"},
                               kCrawl + QStringList{"--timeout", "soon"},
                               kCrawl + QStringList{"--timeout", "1e300"}};
    for (const QStringList& words : bad) {
        const ui::CommandLine line = Read(words);
        EXPECT_EQ(line.action, Action::Print) << words.join(' ').toStdString();
        EXPECT_EQ(line.exit_code, 2) << words.join(' ').toStdString();
        EXPECT_TRUE(line.text.contains("--help")) << words.join(' ').toStdString();
    }
}

TEST(CommandLine, ReadsAnOrder) {
    EXPECT_EQ(Read({}).action, Action::OpenWindow);

    const ui::CommandLine plain = Read(kCrawl);
    ASSERT_EQ(plain.action, Action::Crawl);
    EXPECT_EQ(plain.order.site, "www.site.com");
    EXPECT_EQ(plain.order.connections, 4);
    EXPECT_EQ(plain.order.timeout_milliseconds, 15000);

    const ui::CommandLine full =
        Read({"--site=http://a.com/", "--folder=C:\\Websites", "--connections=24", "--timeout=.5"});
    ASSERT_EQ(full.action, Action::Crawl);
    EXPECT_EQ(full.order.folder, "C:\\Websites");
    EXPECT_EQ(full.order.connections, 24);
    EXPECT_EQ(full.order.timeout_milliseconds, 500);
}

/// The real program.
class Program : public testing::Test {
  protected:
    Program() {
        for (const char* display : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"}) {
            environment.remove(display);
        }
    }
    void Start(const QStringList& words) {
        program.setProcessEnvironment(environment);
        program.start(VANTORIN_PROGRAM, words);
    }
    int Run(const QStringList& words) {
        Start(words);
        EXPECT_TRUE(program.waitForFinished());
        out += program.readAllStandardOutput();
        err += program.readAllStandardError();
        return program.exitStatus() == QProcess::NormalExit ? program.exitCode() : -1;
    }
    /// An order for an address of this machine at which nobody answers.
    QStringList Order(const std::filesystem::path& folder) {
        return {"--site", "127.77.77.77/www.test", "--folder", QString::fromStdString(folder)};
    }

    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    QProcess program;
    QByteArray out, err;
};

TEST_F(Program, TellsBadWordsFromGoodOnes) {
    EXPECT_EQ(Run({"--help"}), 0);
    EXPECT_TRUE(out.contains("--connections"));
    EXPECT_EQ(Run({"--version"}), 0);
    EXPECT_TRUE(out.contains("Vantorin Website Downloader 1.9"));
    EXPECT_TRUE(err.isEmpty()) << err.toStdString();
    EXPECT_EQ(Run({"--site", "www.site.com"}), 2);
    EXPECT_TRUE(err.contains("--folder"));
}

TEST_F(Program, SaysThatItsWindowNeedsADisplay) {
    EXPECT_EQ(Run({}), 1);
    EXPECT_TRUE(err.contains("no display"));
    err.clear();
    environment.insert("QT_QPA_PLATFORM", "none-such");
    EXPECT_EQ(Run({}), 1);
    EXPECT_TRUE(err.contains("no display"));
}

TEST_F(Program, EndsWhenTheCrawlIsComplete) {
    const fakes::TempFolder folder;
    EXPECT_EQ(Run(Order(folder.HostPath() / "new") + QStringList{"--timeout", "0.05"}), 0);
    EXPECT_TRUE(out.contains("The website has been downloaded.")) << out.toStdString();
    EXPECT_TRUE(std::filesystem::is_directory(folder.HostPath() / "new"));
}

TEST_F(Program, RefusesAFolderThatItCannotUse) {
    EXPECT_EQ(Run(Order("/proc/nowhere")), 1);
    EXPECT_TRUE(out.contains("invalid directory")) << out.toStdString();
    const fakes::TempFolder folder;
    EXPECT_EQ(Run(Order(folder.HostPath() / "a&b")), 1);
    EXPECT_TRUE(std::filesystem::is_empty(folder.HostPath())) << "nothing is made elsewhere";
}

#ifndef _WIN32
TEST_F(Program, EndsTidilyOnASignal) {
    const fakes::TempFolder folder;
    for (const auto& [signal, code] : {std::pair(SIGINT, 130), std::pair(SIGTERM, 143)}) {
        Start(Order(folder.HostPath()));
        ASSERT_TRUE(program.waitForReadyRead()) << "it says how far it is";
        kill(static_cast<pid_t>(program.processId()), signal);
        ASSERT_TRUE(program.waitForFinished());
        EXPECT_EQ(program.exitStatus(), QProcess::NormalExit);
        EXPECT_EQ(program.exitCode(), code);
    }
}
#endif
