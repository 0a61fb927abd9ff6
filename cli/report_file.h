#pragma once

#include <cstdint>
#include <cstdio>
#include <memory>
#include <string>

#include "crawl/report.h"

namespace cli {

/// The report of a crawl as a file that grows during the crawl, with one line per settled row. A
/// line is written whole or not at all. Lines that do not fit on a full disk are written when there
/// is room again.
class ReportFile final : public crawl::ReportObserver {
  public:
    ReportFile() = default;
    ~ReportFile() override;
    ReportFile(const ReportFile&) = delete;
    ReportFile& operator=(const ReportFile&) = delete;

    /// Creates the file, replacing an old one, and observes the crawl's report. Returns the
    /// system's message on failure, "" on success. `path` is path text.
    std::string Open(const std::string& path);

    /// Writes the pending lines.
    void Flush();

    /// Writes the rest and closes the file. Returns why the file is incomplete, or "".
    std::string Finish();

    void RowSettled(std::size_t row) override;

  private:
    struct Close {
        void operator()(std::FILE* file) const { std::fclose(file); }
    };
    std::string path_;
    std::unique_ptr<std::FILE, Close> file_;
    std::string pending_;       ///< lines not written yet
    std::uint64_t length_ = 0;  ///< the length of the lines written
    std::string why_not_;
};

}  // namespace cli
