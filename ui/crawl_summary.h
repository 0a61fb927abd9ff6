#pragma once

#include <cstddef>
#include <string>

#include "crawl/report.h"

namespace ui {

/// What a summary depends on besides the report.
struct CrawlCircumstances {
    bool running = false;
    bool paused = false;
    bool has_connections = true;  ///< false if 0 connections are chosen
    std::string folder = {};      ///< the target folder as shown to the user
};

/// A crawl's progress and results.
struct CrawlSummary {
    std::string words;
    bool warns = false;
    std::size_t done = 0;   ///< complete answers on disk
    std::size_t known = 0;  ///< addresses; equal to `done` only if all is well
    bool is_well = true;    ///< nothing was lost so far, or is missing at the end
};

/// Sums up the report. Remembers what it has seen, so that the cost does not depend on the report's
/// length.
class CrawlReporter {
  public:
    /// The report must outlive this object.
    explicit CrawlReporter(const crawl::AddressReport& report) : report_(report) {}

    CrawlSummary Summary(const CrawlCircumstances& circumstances);

    /// A crawl starts.
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
