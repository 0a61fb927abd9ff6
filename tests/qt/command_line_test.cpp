#include "cli/command_line.h"

#include <gtest/gtest.h>

#include <QProcess>
#include <QProcessEnvironment>
#include <QRegularExpression>
#include <QTest>
#include <fstream>
#include <tuple>

#include "tests/fakes/temp_folder.h"
#include "text/text.h"
#include "ui/version.h"

using Action = cli::CommandLine::Action;

namespace {

/// Single blanks separate words; two blanks enclose an empty word.
cli::CommandLine Read(const QString& words) {
    return cli::ReadCommandLine(("vantorin " + words).split(' '));
}

const QString kCrawl = "--site www.site.com --folder /srv/mirror ";

}  // namespace

TEST(CommandLine, RefusesWhatItCannotRead) {
    for (const QString& words :
         {QString("--site www.site.com"), QString("--site"), QString("--site  --folder /srv"),
          kCrawl + "more", QString("www.site.com www.other.com"), kCrawl + "--connections 0",
          kCrawl + "--connections 25", kCrawl + "--timeout 1e300", kCrawl + "--timeout 0.0004"}) {
        const cli::CommandLine line = Read(words);
        EXPECT_EQ(line.exit_code, 2) << words.toStdString();
        EXPECT_TRUE(line.text.contains("--help")) << words.toStdString();
    }
}

TEST(CommandLine, AnAddressAloneOpensTheWindow) {
    const cli::CommandLine line = Read("http://www.site.com/a?b");
    EXPECT_EQ(line.action, Action::OpenWindow);
    EXPECT_EQ(line.address, "http://www.site.com/a?b");
    EXPECT_EQ(cli::ReadCommandLine({"vantorin"}).address, "");
}

TEST(CommandLine, ReadsAnOrder) {
    const cli::CommandLine plain = Read(kCrawl.trimmed());
    ASSERT_EQ(plain.action, Action::Crawl);
    EXPECT_EQ(plain.order.site, "www.site.com");
    EXPECT_EQ(plain.order.connections, 4);
    EXPECT_EQ(plain.order.timeout_milliseconds, 15000);
    const cli::CommandLine full = Read(kCrawl + "--connections=24 --timeout=.5");
    EXPECT_EQ(full.order.connections, 24);
    EXPECT_EQ(Read(kCrawl + "--connections 1").order.connections, 1);
    EXPECT_EQ(full.order.timeout_milliseconds, 500);
}

TEST(CommandLine, HelpAndManualPageNameTheSameOptions) {
    std::ifstream file(VANTORIN_MANUAL);
    std::string manual{std::istreambuf_iterator<char>(file), {}};
    text::ReplaceAllIn(manual, "\\-", "-");
    const QRegularExpression name("--[a-z]+|\\b[0-9]{1,3}\\b|[^ /]+\\.(txt|conf|tmp)");
    auto names = name.globalMatch(Read("--help").text);
    ASSERT_TRUE(names.hasNext());
    while (names.hasNext()) {
        const std::string word = names.next().captured().toStdString();
        EXPECT_TRUE(text::Contains(manual, word)) << word;
    }
}

/// The real program.
class Program : public testing::Test {
  protected:
    Program() {
        auto environment = QProcessEnvironment::systemEnvironment();
        for (const char* display : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
            environment.remove(display);
        program.setProcessEnvironment(environment);
        program.setProcessChannelMode(QProcess::MergedChannels);
    }
    void Start(const QString& words) {
        program.start(VANTORIN_PROGRAM, words.split(' ', Qt::SkipEmptyParts));
    }

    const fakes::TempFolder folder;
    /// A crawl into this folder from an address of this machine that refuses connections.
    const QString order = "--site 127.77.77.77/www.test --timeout 0.05 --folder " +
                          QString::fromStdString(folder.SystemPath().string());
    QProcess program;
};

TEST_F(Program, PrintsTheResultAndExitsWithItsCode) {
    const std::tuple<QString, int, const char*> cases[] = {
        {"--version", 0, ui::kNameAndVersion},
#ifndef _WIN32  // which always has a display
        {"", 1, "no display"},
#endif
        {order + "/a&b", 1, "would be changed"},
        {order + "/www.mirror", 1, "would be changed"}};
    for (const auto& [words, code, said] : cases) {
        Start(words);
        ASSERT_TRUE(program.waitForFinished());
        EXPECT_EQ(program.exitStatus(), QProcess::NormalExit);
        EXPECT_EQ(program.exitCode(), code) << said;
        EXPECT_TRUE(program.readAll().contains(said)) << said;
    }
    EXPECT_TRUE(std::filesystem::is_empty(folder.SystemPath())) << "nothing is created elsewhere";
}

TEST_F(Program, CrawlsAndWritesTheReport) {
    const auto report = folder.SystemPath() / "report.csv";
    Start(order + "/mirror --report " + QString::fromStdString(report.string()));
    ASSERT_TRUE(program.waitForFinished());
    EXPECT_EQ(program.exitCode(), 4) << program.readAll().constData();
    std::ifstream file(report);
    const std::string lines{std::istreambuf_iterator<char>(file), {}};
    EXPECT_TRUE(text::Contains(lines, "\n127.77.77.77/www.test,unanswered,")) << lines;
}
