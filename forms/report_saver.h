#pragma once

#include <QObject>
#include <QTimer>
#include <string>

#include "crawl/report.h"

namespace ui {

/// Writes the ended rows to a file of comma-separated values. Builds the lines in small steps, then
/// writes the whole file at once. Deletes itself when done.
class ReportSaver : public QObject, private crawl::ReportObserver {
    Q_OBJECT

  public:
    /// `path` is path text. The report must outlive this object.
    ReportSaver(crawl::AddressReport& report, std::string path, QObject* parent);
    ~ReportSaver() override;

  signals:
    /// Everything was written, or nothing, with the reason.
    void Done(const std::string& why_not);

  private:
    void AboutToClear() override;
    void Work();
    void Finish(const std::string& why_not);

    crawl::AddressReport& report_;
    std::string path_;
    std::string lines_;
    std::size_t next_ = 0;
    QTimer work_;
};

}  // namespace ui
