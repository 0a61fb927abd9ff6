// Measures the processor time of the core: large responses, links and the queue. Prints table rows
// with medians of several runs.
//
//     core_speed FOLDER
//
// Writes its files to FOLDER. Use an empty folder in memory (tmpfs) to exclude the disk.
#include <algorithm>
#include <array>
#include <cstdio>
#include <ctime>
#include <functional>
#include <random>
#include <string>
#include <vector>

#include "cli/html_page_text.h"
#include "crawl/crawl_state.h"
#include "extractor/admission.h"
#include "extractor/link_scanner.h"
#include "output/mirror_files.h"
#include "output/save_file.h"
#include "platform/memory_settings_store.h"
#include "platform/path_text.h"
#include "platform/services.h"
#include "platform/system_files.h"
#include "text/text.h"

namespace {

constexpr int kRuns = 5;
constexpr std::size_t kMegabyte = 1'000'000;

class NoEvents : public platform::EventLoop {
  public:
    void DoEvents() override {}
    void DoEventsThrottled() override {}
};

class NoProcesses : public platform::ProcessStarter {
  public:
    bool ExploreFolder(const std::string&) override { return false; }
    bool OpenFile(const std::string&) override { return false; }
    bool OpenPage(const std::string&, const std::string&) override { return false; }
    bool OpenAddress(const std::string&) override { return false; }
};

class NoBoxes : public platform::MessageBoxes {
  public:
    platform::BoxAnswer MsgBox(const std::string&, platform::BoxStyle,
                               const std::string&) override {
        return platform::BoxAnswer::No;
    }
    void AwaitAttention() override {}
    std::string InputBox(const std::string&, const std::string&) override { return ""; }
};

/// The processor time of `work` in milliseconds, which excludes other processes.
double Milliseconds(const std::function<void()>& work) {
    const std::clock_t start = std::clock();
    work();
    return 1000.0 * static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
}

double Median(std::vector<double> figures) {
    std::sort(figures.begin(), figures.end());
    return figures[figures.size() / 2];
}

/// Prints one row: the speed of `work`, which processes 100 MB, in megabytes per second.
void ReportPace(const char* what, const std::function<void()>& prepare,
                const std::function<void()>& work) {
    std::vector<double> paces;
    for (int run = 0; run < kRuns; ++run) {
        prepare();
        paces.push_back(100'000 / Milliseconds(work));
    }
    std::printf("| %s | %.0f MB/s | median of %d |\n", what, Median(paces), kRuns);
}

struct Level {
    int size;
    std::function<void()> prepare;
    std::function<double()> microseconds;  ///< processor time per item
};

/// Prints one row: the cost of one item at each level. The levels take turns, so that a disturbance
/// affects all of them.
void ReportLevels(const char* what, const std::vector<Level>& levels) {
    std::vector<std::vector<double>> costs(levels.size());
    for (int run = 0; run < kRuns; ++run) {
        for (std::size_t i = 0; i < levels.size(); ++i) {
            levels[i].prepare();
            costs[i].push_back(levels[i].microseconds());
        }
    }
    std::string beside;
    std::vector<double> medians;
    for (std::size_t i = 0; i < levels.size(); ++i) {
        medians.push_back(Median(costs[i]));
        std::array<char, 80> text;
        std::snprintf(text.data(), text.size(), "%s%.2f us at %d", i > 0 ? ", " : "", medians[i],
                      levels[i].size);
        beside += text.data();
    }
    const auto [least, most] = std::minmax_element(medians.begin(), medians.end());
    std::printf("| %s | within %.0f %% | %s |\n", what, 100 * (*most / *least - 1), beside.c_str());
}

std::string RandomBytes(std::size_t size) {
    std::mt19937 random(1);
    std::string bytes(size, '\0');
    std::generate(bytes.begin(), bytes.end(), [&] { return static_cast<char>(random()); });
    return bytes;
}

constexpr int kFolders = 100;

std::string NameOf(int file) {
    return "folder" + std::to_string(file % kFolders) + "/page" + std::to_string(file) + ".html";
}

/// Makes sure that exactly the site's files 0 to `count` - 1 exist.
void HaveFiles(int count) {
    static int there = 0;
    const std::string folder = crawl::TargetFolder + "site.com\\";
    const auto path = [&](int file) { return text::ReplaceAll(folder + NameOf(file), "/", "\\"); };
    platform::System().files.CreateFolder(folder);
    for (int i = 0; i < kFolders; ++i) {
        platform::System().files.CreateFolder(folder + "folder" + std::to_string(i));
    }
    for (; there < count; ++there) {
        platform::System().files.WriteFile(path(there), {"page"});
    }
    while (there > count) {
        platform::System().files.DeleteFile(path(--there));
    }
}

void Scan(text::ConsumableText& response) {
    std::string base = "www.site.com/";
    bas_Extractor::ExtractLinks(response, crawl::List1, base);
}

void ReportLargeResponses() {
    const std::string received = "HTTP/1.0 200 OK\r\n\r\n" + RandomBytes(100 * kMegabyte);
    text::ConsumableText response;
    ReportPace(
        "scan 100 MB of random bytes", [&] { response.Assign(received); }, [&] { Scan(response); });
    response.Clear();
    ReportPace(
        "save 100 MB of random bytes", [] {},
        [&] {
            std::string address = "\\www.site.com/a.zip";
            bas_Output::SaveFile(received, address, 1);
        });
}

/// Pages with `links` links each to existing files; a hundred thousand links in all.
Level ScanLevel(int links) {
    constexpr int kLinks = 100'000;
    constexpr int kFiles = 10'000;
    return {links, [] { HaveFiles(kFiles); },
            [links] {
                int file = 0;
                double milliseconds = 0;
                for (int page = 0; page < kLinks / links; ++page) {
                    std::string text = "HTTP/1.0 200 OK\r\n\r\n<html>";
                    for (int i = 0; i < links; ++i) {
                        text += "<p>Some text <a href=\"" + NameOf(file++ % kFiles) +
                                "\">and a link</a></p>\n";
                    }
                    text::ConsumableText response(std::move(text));
                    milliseconds += Milliseconds([&] { Scan(response); });
                }
                return 1000 * milliseconds / kLinks;
            }};
}

/// New links while `files` files exist.
Level AdmissionLevel(int files) {
    constexpr int kLinks = 5'000;
    return {files, [files] { HaveFiles(files); },
            [] {
                static int name = 1'000'000;
                const double milliseconds = Milliseconds([] {
                    for (int i = 0; i < kLinks; ++i) {
                        bas_Extractor::AdmitLink("www.site.com/" + NameOf(name + i), crawl::List1);
                    }
                });
                for (int i = 0; i < kLinks; ++i) {
                    bas_Output::DeletePlaceholder(crawl::TargetFolder + "site.com/" +
                                                  NameOf(name++) + ".tmp");
                }
                return 1000 * milliseconds / kLinks;
            }};
}

/// Appends an address to a queue of this length and removes it again.
Level QueueLevel(int length) {
    constexpr int kItems = 1'000'000;
    const auto add = [](int i) {
        crawl::List1.AddItem("www.site.com/some/folder/page" + std::to_string(i % 1000 + 1000));
    };
    return {length,
            [=] {
                crawl::List1.Clear();
                for (int i = 0; i < length; ++i)
                    add(i);
            },
            [=] {
                const double milliseconds = Milliseconds([&] {
                    for (int i = 0; i < kItems; ++i) {
                        add(i);
                        crawl::List1.RemoveLast();
                    }
                });
                return 1000 * milliseconds / kItems;
            }};
}

void ReportAllLevels() {
    ReportLevels("ExtractLinks for each link of a page, by links; 10,000 files on disk",
                 {ScanLevel(100), ScanLevel(1'000), ScanLevel(10'000), ScanLevel(100'000)});
    ReportLevels("admission of a new link, by saved files",
                 {AdmissionLevel(100), AdmissionLevel(1'000), AdmissionLevel(10'000),
                  AdmissionLevel(100'000)});
    ReportLevels("an address into the queue and off it, by its length",
                 {QueueLevel(1'000), QueueLevel(100'000), QueueLevel(1'000'000)});
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
    cli::HtmlPageText page_text;
    NoProcesses processes;
    NoBoxes boxes;
    const platform::Services services{events, files, settings, page_text, processes, boxes};
    platform::InstallSystem(&services);
    crawl::TargetFolder = platform::PathTextOf(argv[1]) + "\\";
    crawl::SiteHost = "site.com";
    crawl::FileTypeSet = ":.html:";
    crawl::Slots[1].Host = "www.site.com";
    bas_Output::BeginMirror();

    ReportLargeResponses();
    ReportAllLevels();
    platform::InstallSystem(nullptr);
}
