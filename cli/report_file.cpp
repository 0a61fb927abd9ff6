#include "cli/report_file.h"

#include <filesystem>
#include <optional>
#include <system_error>

#include "crawl/crawl_state.h"
#include "crawl/report_text.h"
#include "platform/files.h"
#include "platform/native_files.h"

namespace cli {

namespace native = platform::native;

ReportFile::~ReportFile() {
    crawl::Report.RemoveObserver(*this);
}

std::string ReportFile::Open(const std::string& path) {
    path_ = path;
    const auto native_path = native::PathOf(path);
    if (!native_path) return platform::kNoName;
    // Opening a pipe would wait for a reader.
    const auto status = native::StatusOf(*native_path);
    if (status && !status->is_file) return "not a regular file";
    file_.reset(native::Open(*native_path, "wb"));
    if (!file_) return native::WhyItFailed();
    std::setvbuf(file_.get(), nullptr, _IONBF, 0);
    pending_ = crawl::CsvHeader();
    Flush();
    crawl::Report.AddObserver(*this);
    return why_not_;
}

void ReportFile::RowSettled(std::size_t row) {
    pending_ += crawl::CsvLine(crawl::Report.Row(row));
}

void ReportFile::Flush() {
    if (!file_ || pending_.empty()) return;
    if (std::fwrite(pending_.data(), 1, pending_.size(), file_.get()) == pending_.size()) {
        length_ += pending_.size();
        pending_.clear();
        why_not_.clear();
        return;
    }
    why_not_ = native::WhyItFailed();
    // Remove a partial line.
    std::error_code ignored;
    std::filesystem::resize_file(*native::PathOf(path_), length_, ignored);
    std::fseek(file_.get(), 0, SEEK_END);
}

std::string ReportFile::Finish() {
    if (!file_) return "";
    Flush();
    const bool closed = std::fclose(file_.release()) == 0;
    if (!closed && why_not_.empty()) why_not_ = native::WhyItFailed();
    // A file can still be written to after its folder was deleted.
    const auto status = native::StatusOf(*native::PathOf(path_));
    if (why_not_.empty() && (!status || status->length != length_))
        why_not_ = "the file was removed or changed";
    return why_not_;
}

}  // namespace cli
