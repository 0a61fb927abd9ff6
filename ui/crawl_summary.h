#pragma once

#include <cstddef>
#include <string>

#include "crawl/report.h"

namespace ui {

/// What the report alone does not tell of a crawl.
struct CrawlCircumstances {
    bool running = false;
    bool paused = false;
    bool has_connections = true;  ///< false when none at a time was chosen
    std::string folder = {};      ///< where the files go, as people write it
};

/// How far a crawl is and what it has come to.
struct CrawlSummary {
    std::string words;
    bool warns = false;
    std::size_t done = 0;   ///< whole answers on disk, of
    std::size_t known = 0;  ///< so many addresses; as many only when all is well
    bool is_well = true;    ///< nothing was lost so far, and at the end nothing is missing
};

/// Sums up the report. It keeps in mind what it has seen, so that this takes the same time however
/// long the report is.
class CrawlReporter {
  public:
    /// The report must outlive this.
    explicit CrawlReporter(const crawl::AddressReport& report) : report_(report) {}

    CrawlSummary Summary(const CrawlCircumstances& circumstances);

    /// A crawl begins.
    void Reset();

  private:
    std::string Words(const CrawlCircumstances& circumstances);
    std::string Trouble();
    std::string Counts(const CrawlCircumstances& circumstances, bool trouble_told) const;
    const crawl::ReportRow* FirstNotWritten();
    std::size_t Faults() const;

    const crawl::AddressReport& report_;
    std::size_t looked_through_ = 0;
    std::size_t not_written_ = crawl::kNoRow;
};

}  // namespace ui
