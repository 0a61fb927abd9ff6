#pragma once

#include <QObject>
#include <QTimer>
#include <memory>
#include <string>

#include "search/page_finder.h"

namespace ui {

/// Opens a page whose path was recorded in lower case. It searches for the file for a few
/// milliseconds at a time.
class PageOpener : public QObject {
    Q_OBJECT

  public:
    explicit PageOpener(QObject* parent);

    /// Opens a page, and drops an earlier one that is not open yet. `folder` and `recorded`, a path
    /// relative to it, are path text. The browser scrolls to `words`.
    void Open(const std::string& folder, const std::string& recorded, const std::string& words);

  signals:
    /// The page no longer exists, or no program to open it could be started.
    void NotThere();
    void NotStarted();

  private:
    void Work();

    std::unique_ptr<search::PageFinder> finder_;
    std::string words_;
    QTimer work_;
};

}  // namespace ui
