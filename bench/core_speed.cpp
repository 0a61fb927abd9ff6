// Times the core's heavy passes on the real disk: median milliseconds of several runs.
//
//     core_speed FOLDER
//
// FOLDER receives the files that are written; an empty one in memory (tmpfs) leaves the disk out of
// it.
#include <algorithm>
#include <cstdio>
#include <ctime>
#include <functional>
#include <random>
#include <string>
#include <vector>

#include "engine/state/crawl_state.h"
#include "extractor/link_scanner.h"
#include "output/mirror_files.h"
#include "output/save_file.h"
#include "platform/memory_settings_store.h"
#include "platform/path_text.h"
#include "platform/services.h"
#include "platform/system_files.h"
#include "ui/html_page_text.h"

namespace {

constexpr int kRuns = 5;
constexpr std::size_t kMegabyte = 1024 * 1024;

class NoEvents : public platform::EventLoop {
  public:
    void DoEvents() override {}
    void DoEventsOften() override {}
};

class NoProcesses : public platform::ProcessStarter {
  public:
    bool ExploreFolder(const std::string&) override { return false; }
    bool OpenAddress(const std::string&) override { return false; }
};

class NoBoxes : public platform::MessageBoxes {
  public:
    platform::BoxAnswer MsgBox(const std::string&, platform::BoxStyle,
                               const std::string&) override {
        return platform::BoxAnswer::No;
    }
    std::string InputBox(const std::string&, const std::string&) override { return ""; }
};

void Report(const char* what, const std::function<void()>& prepare,
            const std::function<void()>& work) {
    std::vector<double> milliseconds;
    for (int run = 0; run < kRuns; ++run) {
        prepare();
        const std::clock_t start = std::clock();
        work();
        milliseconds.push_back(1000.0 * static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC);
    }
    std::sort(milliseconds.begin(), milliseconds.end());
    std::printf("%-46s %9.1f ms\n", what, milliseconds[kRuns / 2]);
}

std::string RandomBytes(std::size_t size) {
    std::mt19937 random(1);
    std::string bytes(size, '\0');
    std::generate(bytes.begin(), bytes.end(), [&] { return static_cast<char>(random()); });
    return bytes;
}

/// A page of many links, about 60 bytes each; `run` makes their names new.
std::string PageOfLinks(int links, int run) {
    std::string page = "HTTP/1.0 200 OK\r\n\r\n<html>";
    for (int i = 0; i < links; ++i) {
        page += "<p>Some text <a href=\"dir/page" + std::to_string(run) + "-" + std::to_string(i) +
                ".html\">and a link</a></p>\n";
    }
    return page;
}

void Scan(std::string page) {
    text::ConsumableText response(std::move(page));
    std::string base = "www.site.com/";
    bas_Extractor::ExtractLinks(response, crawl::List1, base);
}

void Save(const std::string& received, std::string address) {
    bas_Output::SaveFile(received, address, 1);
}

void ReportScans() {
    const std::string binary = "HTTP/1.0 200 OK\r\n\r\n" + RandomBytes(100 * kMegabyte);
    Report(
        "scan 100 MB of random bytes", [] {}, [&] { Scan(binary); });
    int run = 0;
    std::string page;
    Report(
        "scan 10,000 links, all new", [&] { page = PageOfLinks(10'000, ++run); },
        [&] { Scan(page); });
    Report(
        "scan 10,000 links, all known", [] {}, [&] { Scan(page); });
}

void ReportSaves() {
    const std::string binary = "HTTP/1.0 200 OK\r\n\r\n" + RandomBytes(100 * kMegabyte);
    Report(
        "save 100 MB of random bytes", [] {}, [&] { Save(binary, "\\www.site.com/a.zip"); });
    const std::string page = PageOfLinks(200'000, 0);
    Report(
        "save a 12 MB page with its search text", [] {},
        [&] { Save(page, "\\www.site.com/a.html"); });
}

void ReportQueue() {
    Report(
        "append and take a million queued addresses", [] { crawl::List1.Clear(); },
        [] {
            for (int i = 0; i < 1'000'000; ++i)
                crawl::List1.AddItem("www.site.com/some/folder/page" + std::to_string(i));
            while (!crawl::List1.Empty())
                crawl::List1.RemoveLast();
        });
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fputs("usage: core_speed FOLDER\n", stderr);
        return 2;
    }
    NoEvents events;
    platform::SystemFiles files(argv[1]);
    platform::MemorySettingsStore settings;
    ui::HtmlPageText page_text;
    NoProcesses processes;
    NoBoxes boxes;
    const platform::Services services{events, files, settings, page_text, processes, boxes};
    platform::InstallSystem(&services);
    crawl::TargetFolder = platform::PathTextOf(argv[1]) + "\\";
    crawl::SiteHost = "site.com";
    crawl::FileTypeSet = ":.html:";
    crawl::Slots[1].Host = "www.site.com";
    bas_Output::BeginMirror();

    ReportScans();
    ReportSaves();
    ReportQueue();
    platform::InstallSystem(nullptr);
}
