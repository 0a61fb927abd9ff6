#include "ui/crawl_summary.h"

#include <cerrno>
#include <string_view>
#include <system_error>
#include <utility>

#include "engine/endings.h"

namespace ui {

namespace {

using crawl::Outcome;

std::string Count(std::size_t count) {
    return bas_Connections::FormatCount(static_cast<std::int64_t>(count));
}

std::string Files(std::size_t count) {
    return Count(count) + (count == 1 ? " file" : " files");
}

std::string HostOf(const crawl::ReportRow& row) {
    return std::string(row.address.substr(0, row.address.find('/')));
}

/// Why an address was not answered, as a sentence about its host.
std::string SaidOfHost(const std::string& host, std::string_view why) {
    static constexpr std::pair<std::string_view, std::string_view> kSayings[] = {
        {"refused", " refused the connection"},
        {"unreachable", " cannot be reached"},
        {"closed without an answer", " closed the connection without an answer"},
        {"silent after", " stopped in the middle of its answer"},
        {"silent", " does not answer"},
        {"reset", " reset the connection"},
    };
    if (why == "name unknown") return "No such host: " + host;
    if (why == "no name server answered") return "No name server answers for " + host;
    for (const auto& [beginning, saying] : kSayings) {
        if (why.starts_with(beginning)) return host + std::string(saying);
    }
    return host + ": " + std::string(why);
}

/// What was wrong with the start address, on which all others depend; "" if nothing was.
std::string TroubleAtTheStart(const crawl::ReportRow& start) {
    const std::string address = "http://" + std::string(start.address);
    const std::string answered = HostOf(start) + " answered " + std::to_string(start.status);
    const std::string detail(start.detail);
    switch (start.outcome) {
        case Outcome::UnderWay:
            return detail.empty() ? "" : SaidOfHost(HostOf(start), detail);
        case Outcome::Unanswered:
            return SaidOfHost(HostOf(start), detail);
        case Outcome::Moved:
            return answered + (detail.empty() ? "" : ": it has moved to " + detail);
        case Outcome::Error:
            return answered + (detail.empty() ? "" : ": " + detail);
        case Outcome::Short:
            return "Only a part of " + address + " arrived";
        case Outcome::TooLarge:
            return address + " is too large for memory";
        case Outcome::NotAsked:
            return address + " was not asked for: it lies above the site's root";
        default:
            return "";
    }
}

bool IsDiskFull(const crawl::ReportRow& row) {
    return row.detail == std::generic_category().message(ENOSPC);
}

}  // namespace

void CrawlReporter::Reset() {
    looked_through_ = 0;
    not_written_ = crawl::kNoRow;
}

CrawlSummary CrawlReporter::Summary(const CrawlCircumstances& circumstances) {
    const std::size_t saved = report_.CountOf(Outcome::Saved);
    const bool complete = saved > 0 && report_.CountOf(Outcome::Unfinished) == 0;
    CrawlSummary summary;
    summary.known = report_.Count();
    summary.is_well = Faults() == 0 && (circumstances.running || complete);
    if (summary.is_well && !circumstances.running) {
        summary.done = summary.known;
    } else if (saved > 0 || circumstances.running) {
        summary.done = saved + report_.CountOf(Outcome::Moved) + report_.CountOf(Outcome::Error);
    }
    summary.words = Words(circumstances);
    const bool stopped = report_.CountOf(Outcome::Unfinished) > 0;
    summary.warns = !circumstances.has_connections || Faults() > 0 || !Trouble().empty() ||
                    (!circumstances.running && saved == 0 && !stopped && summary.known > 0);
    return summary;
}

std::size_t CrawlReporter::Faults() const {
    return report_.CountOf(Outcome::Unanswered) + report_.CountOf(Outcome::Short) +
           report_.CountOf(Outcome::NotWritten) + report_.CountOf(Outcome::TooLarge);
}

std::string CrawlReporter::Words(const CrawlCircumstances& circumstances) {
    std::string words;
    if (!circumstances.has_connections) words = "0 connections: nothing is fetched";
    if (report_.Count() == 0) return words;
    const auto add = [&words](const std::string& sentence) {
        if (!words.empty() && !sentence.empty()) words += ". ";
        words += sentence;
    };
    const std::string trouble = Trouble();
    if (circumstances.paused) add("Paused: no new files start");
    add(trouble);
    // If the start has failed, there is nothing to count.
    const bool only_start = report_.Count() == 1 && report_.CountOf(Outcome::NotWritten) == 0;
    if (trouble.empty() || !only_start) add(Counts(circumstances, !trouble.empty()));
    return words;
}

std::string CrawlReporter::Trouble() {
    if (report_.Count() == 0) return "";
    if (const crawl::ReportRow* const row = FirstNotWritten()) {
        const std::size_t count = report_.CountOf(Outcome::NotWritten);
        const std::string were = Files(count) + (count == 1 ? " was" : " were") + " not written";
        if (IsDiskFull(*row)) return "The disk is full: " + were;
        return were + (row->detail.empty() ? "" : " (" + std::string(row->detail) + ")");
    }
    return report_.CountOf(Outcome::Saved) > 0 ? "" : TroubleAtTheStart(report_.Row(0));
}

std::string CrawlReporter::Counts(const CrawlCircumstances& circumstances,
                                  bool trouble_told) const {
    struct Words {
        Outcome outcome;
        const char* one;
        const char* more;
    };
    static constexpr Words kWords[] = {
        {Outcome::Moved, "moved", "moved"},
        {Outcome::Error, "error", "errors"},
        {Outcome::Short, "cut short", "cut short"},
        {Outcome::Unanswered, "unanswered", "unanswered"},
        {Outcome::NotWritten, "not written", "not written"},
        {Outcome::TooLarge, "too large", "too large"},
        {Outcome::NotAsked, "not asked for", "not asked for"},
    };
    const bool stopped = !circumstances.running && report_.CountOf(Outcome::Unfinished) > 0;
    const std::size_t saved = report_.CountOf(Outcome::Saved);
    std::string counts =
        stopped ? Count(saved) + " saved in " + circumstances.folder : Files(saved) + " saved";
    for (const auto& [outcome, one, more] : kWords) {
        const std::size_t count = report_.CountOf(outcome);
        if (count == 0 || (outcome == Outcome::NotWritten && trouble_told)) continue;
        counts += ", " + Count(count) + " " + (count == 1 ? one : more);
    }
    if (circumstances.running) {
        counts += ", " + Count(report_.Count() - report_.Ended().size()) + " to go";
    }
    if (report_.AlreadyThere() > 0)
        counts += ", " + Count(report_.AlreadyThere()) + " already there";
    return stopped ? counts + ", stopped" : counts;
}

const crawl::ReportRow* CrawlReporter::FirstNotWritten() {
    const auto is_not_written = [this](std::size_t row) {
        return row < report_.Count() && report_.Row(row).outcome == Outcome::NotWritten;
    };
    if (report_.CountOf(Outcome::NotWritten) == 0) return nullptr;
    if (is_not_written(not_written_)) return &report_.Row(not_written_);
    const auto& ended = report_.Ended();
    while (looked_through_ < ended.size() && !is_not_written(ended[looked_through_])) {
        ++looked_through_;
    }
    if (looked_through_ == ended.size()) looked_through_ = 0;  // an earlier row has changed
    not_written_ = looked_through_ < ended.size() ? ended[looked_through_] : crawl::kNoRow;
    return is_not_written(not_written_) ? &report_.Row(not_written_) : nullptr;
}

}  // namespace ui
