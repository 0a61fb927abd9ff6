#pragma once

#include <chrono>
#include <deque>
#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "crawl/crawl_state.h"
#include "output/mirror_files.h"
#include "platform/memory_settings_store.h"
#include "platform/services.h"
#include "setup/keyword_filters.h"
#include "tests/fakes/fake_loop.h"
#include "tests/fakes/memory_files.h"

namespace fakes {

/// Answers message boxes from queues and records them.
class ScriptedBoxes : public platform::MessageBoxes {
  public:
    struct Asked {
        std::string message;
        platform::BoxStyle style;
        std::string title;
        bool operator==(const Asked&) const = default;
    };
    std::vector<Asked> asked;
    std::deque<platform::BoxAnswer> answers;  ///< if empty: No if offered, otherwise Ok
    std::vector<std::pair<std::string, std::string>> inputs_asked;  ///< prompt and title
    std::deque<std::string> inputs;                                 ///< if empty: ""
    std::function<void()> while_open;                               ///< runs while a box is open
    int waits = 0;                                                  ///< calls of `AwaitAttention`

    platform::BoxAnswer MsgBox(const std::string& message, platform::BoxStyle style,
                               const std::string& title) override {
        asked.push_back({message, style, title});
        if (while_open) while_open();
        const bool ok_only =
            style == platform::BoxStyle::Information || style == platform::BoxStyle::Stop;
        return Take(answers, ok_only ? platform::BoxAnswer::Ok : platform::BoxAnswer::No);
    }
    void AwaitAttention() override { ++waits; }
    std::string InputBox(const std::string& prompt, const std::string& title) override {
        inputs_asked.emplace_back(prompt, title);
        if (while_open) while_open();
        return Take(inputs, std::string());
    }

  private:
    template <typename T>
    static T Take(std::deque<T>& queue, T fallback) {
        if (queue.empty()) return fallback;
        T front = queue.front();
        queue.pop_front();
        return front;
    }
};

class RecordedProcesses : public platform::ProcessStarter {
  public:
    std::vector<std::string> folders, files, addresses;

    bool ExploreFolder(const std::string& folder) override {
        folders.push_back(folder);
        return true;
    }
    bool OpenFile(const std::string& file) override {
        files.push_back(file);
        return true;
    }
    bool OpenPage(const std::string& file, const std::string& words) override {
        files.push_back(file + "#" + words);
        return true;
    }
    bool OpenAddress(const std::string& address) override {
        addresses.push_back(address);
        return true;
    }
};

/// Returns the same text for every page and records the pages.
class CannedPageText : public platform::PageText {
  public:
    std::string text = "page text";
    std::vector<std::string> pages;
    std::vector<platform::PageKind> kinds;

    std::string InnerText(std::string file_bytes, platform::PageKind kind) override {
        pages.push_back(std::move(file_bytes));
        kinds.push_back(kind);
        return text;
    }
};

inline std::vector<std::string> Items(const crawl::ListItems& list) {
    std::vector<std::string> items;
    items.reserve(list.Count());
    for (std::size_t i = 0; i < list.Count(); ++i)
        items.push_back(list.Item(i));
    return items;
}

/// An in-memory system, installed as long as it exists. It starts with the crawl's variables, the
/// mirror's memory and the keyword filters of a new process.
struct FakeSystem {
    FakeSystem() : FakeSystem(loop) {}
    explicit FakeSystem(platform::EventLoop& events)
        : services_{events, files, settings, page_text, processes, boxes} {
        platform::InstallSystem(&services_);
        ResetProcess();
    }
    ~FakeSystem() { platform::InstallSystem(nullptr); }
    FakeSystem(const FakeSystem&) = delete;
    FakeSystem& operator=(const FakeSystem&) = delete;

    FakeLoop loop;  ///< unless the constructor got another
    MemoryFiles files;
    platform::MemorySettingsStore settings;
    ScriptedBoxes boxes;
    RecordedProcesses processes;
    CannedPageText page_text;

  private:
    static void ResetProcess() {
        crawl::Slots = {};
        for (std::string* text :
             {&crawl::SiteHost, &crawl::TargetFolder, &crawl::FileTypeSet, &crawl::SavePath,
              &crawl::SavePathBeforeRename, &crawl::MadeFolders, &crawl::LastSearchPage}) {
            text->clear();
        }
        crawl::TotalBytes = crawl::FilesDone = 0;
        crawl::Stopping = false;
        crawl::List1 = crawl::List2 = {};
        crawl::Report.clock = [] { return std::chrono::milliseconds(0); };
        crawl::Report.Clear();
        bas_Output::BeginMirror();
        bas_General::ClearKeywordFilters();
    }

    platform::Services services_;
};

}  // namespace fakes
