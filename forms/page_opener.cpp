#include "forms/page_opener.h"

#include <QElapsedTimer>

#include "platform/services.h"

namespace ui {

namespace {
constexpr qint64 kWorkMilliseconds = 6;
}

PageOpener::PageOpener(QObject* parent) : QObject(parent) {
    connect(&work_, &QTimer::timeout, this, &PageOpener::Work);
}

void PageOpener::Open(const std::string& folder, const std::string& recorded,
                      const std::string& words) {
    finder_ = std::make_unique<search::PageFinder>(folder, recorded, platform::System().files);
    words_ = words;
    work_.start(0);
    Work();
}

void PageOpener::Work() {
    QElapsedTimer worked;
    worked.start();
    while (finder_->Step()) {
        if (worked.hasExpired(kWorkMilliseconds)) return;
    }
    work_.stop();
    if (finder_->Found().empty()) {
        emit NotThere();
    } else if (!platform::System().processes.OpenPage(finder_->Found(), words_)) {
        emit NotStarted();
    }
}

}  // namespace ui
