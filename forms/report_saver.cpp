#include "forms/report_saver.h"

#include <QElapsedTimer>
#include <utility>

#include "crawl/report_text.h"
#include "platform/services.h"

namespace ui {

namespace {
constexpr qint64 kWorkMilliseconds = 6;
}

ReportSaver::ReportSaver(crawl::AddressReport& report, std::string path, QObject* parent)
    : QObject(parent), report_(report), path_(std::move(path)), lines_(crawl::CsvHeader()) {
    report_.AddObserver(*this);
    connect(&work_, &QTimer::timeout, this, &ReportSaver::Work);
    work_.start(0);
}

ReportSaver::~ReportSaver() {
    report_.RemoveObserver(*this);
}

void ReportSaver::Work() {
    QElapsedTimer worked;
    worked.start();
    while (next_ < report_.Ended().size()) {
        if (worked.hasExpired(kWorkMilliseconds)) return;
        lines_ += crawl::CsvLine(report_.Row(report_.Ended()[next_++]));
    }
    Finish(platform::System().files.WriteFile(path_, {lines_}).why_not);
}

void ReportSaver::AboutToClear() {
    Finish("a new download has started");
}

void ReportSaver::Finish(const std::string& why_not) {
    work_.stop();
    deleteLater();
    emit Done(why_not);
}

}  // namespace ui
