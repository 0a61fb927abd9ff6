#pragma once

#include <cstdint>
#include <cstdio>
#include <memory>
#include <string>

#include "crawl/report.h"

namespace cli {

/// The report of a crawl as a file that grows while the crawl goes on: a line for each row that has
/// ended. A line is there whole or not at all. What a full disk did not take is written when it has
/// room again.
class ReportFile final : public crawl::ReportObserver {
  public:
    ReportFile() = default;
    ~ReportFile() override;
    ReportFile(const ReportFile&) = delete;
    ReportFile& operator=(const ReportFile&) = delete;

    /// Begins the file, in place of one that is there, and listens to the crawl's report. Why that
    /// cannot be done, in the system's words, or "". `path` is path text.
    std::string Open(const std::string& path);

    /// Writes what has been told so far.
    void Flush();

    /// Writes the rest and ends the file. Why it is not whole, or "".
    std::string Finish();

    void RowSettled(std::size_t row) override;

  private:
    struct Close {
        void operator()(std::FILE* file) const { std::fclose(file); }
    };
    std::string path_;
    std::unique_ptr<std::FILE, Close> file_;
    std::string pending_;       ///< lines that are not written yet
    std::uint64_t length_ = 0;  ///< of the lines that are
    std::string why_not_;
};

}  // namespace cli
