#include "crawl/report_text.h"

#include <algorithm>
#include <vector>

namespace crawl {

namespace {

constexpr std::string_view kLineEnd = "\r\n";

/// In the order of the summary.
constexpr Outcome kToldOutcomes[] = {Outcome::Saved,    Outcome::Error,      Outcome::Moved,
                                     Outcome::Short,    Outcome::Unanswered, Outcome::NotWritten,
                                     Outcome::TooLarge, Outcome::NotAsked,   Outcome::Unfinished,
                                     Outcome::UnderWay, Outcome::Queued};

/// The most reasons that the summary lists.
constexpr std::size_t kMostReasons = 3;

std::string Field(std::string_view text) {
    if (text.find_first_of(",\"\r\n") == text.npos) return std::string(text);
    std::string quoted = "\"";
    for (const char c : text) {
        if (c == '"') quoted += c;
        quoted += c;
    }
    return quoted + '"';
}

bool WasAnswered(Outcome outcome) {
    return (outcome >= Outcome::Saved && outcome <= Outcome::Short) ||
           outcome == Outcome::NotWritten;
}

std::string Seconds(Milliseconds time) {
    const std::string thousandths = std::to_string(time.count() % 1000);
    return std::to_string(time.count() / 1000) + "." + std::string(3 - thousandths.size(), '0') +
           thousandths;
}

/// Why files were not written, in parentheses.
std::string Reasons(const AddressReport& report) {
    std::vector<std::string_view> reasons;
    for (std::size_t i = 0; i < report.Count() && reasons.size() <= kMostReasons; ++i) {
        const ReportRow& row = report.Row(i);
        if (row.outcome != Outcome::NotWritten) continue;
        if (std::ranges::count(reasons, row.detail) == 0) reasons.push_back(row.detail);
    }
    std::string text;
    for (std::size_t i = 0; i < reasons.size(); ++i) {
        text.append(i == 0 ? " (" : "; ").append(i < kMostReasons ? reasons[i] : "...");
    }
    return text + ")";
}

}  // namespace

std::string CsvHeader() {
    return "address,outcome,status,bytes,announced,tries,seconds,detail\r\n";
}

std::string CsvLine(const ReportRow& row) {
    std::string line = Field(row.address);
    line.append(",").append(NameOf(row.outcome));
    line.append(",").append(row.status == 0 ? "" : std::to_string(row.status));
    line.append(",").append(WasAnswered(row.outcome) ? std::to_string(row.bytes) : "");
    line.append(",").append(row.announced ? std::to_string(*row.announced) : "");
    line.append(",").append(std::to_string(row.attempts));
    line.append(",").append(Seconds(row.took));
    return line.append(",").append(Field(row.detail)).append(kLineEnd);
}

std::string SummaryOf(const AddressReport& report) {
    std::string summary;
    const auto add = [&summary](std::size_t count, std::string_view what) {
        if (count == 0) return;
        if (!summary.empty()) summary += ", ";
        summary.append(std::to_string(count)).append(" ").append(what);
    };
    for (const Outcome outcome : kToldOutcomes) {
        add(report.CountOf(outcome), NameOf(outcome));
        if (outcome == Outcome::NotWritten && report.CountOf(outcome) > 0) {
            summary += Reasons(report);
        }
    }
    add(report.AlreadyThere(), "already there");
    return summary;
}

}  // namespace crawl
