#pragma once

#include <QObject>
#include <QTimer>
#include <string>

#include "crawl/report.h"

namespace ui {

/// Writes the rows that have ended to a file of comma-separated values. The lines are put together
/// a little at a time, and the file is then written at one stroke. It deletes itself when it is
/// done.
class ReportSaver : public QObject, private crawl::ReportObserver {
    Q_OBJECT

  public:
    /// `path` is path text. The report must outlive this.
    ReportSaver(crawl::AddressReport& report, std::string path, QObject* parent);
    ~ReportSaver() override;

  signals:
    /// All is written, or why nothing was.
    void Done(const std::string& why_not);

  private:
    void Cleared() override;
    void Work();
    void Finish(const std::string& why_not);

    crawl::AddressReport& report_;
    std::string path_;
    std::string lines_;
    std::size_t next_ = 0;
    QTimer work_;
};

}  // namespace ui
