#pragma once

#include "cli/html_page_text.h"
#include "platform/qt/qt_event_loop.h"
#include "platform/qt/qt_process_starter.h"
#include "platform/services.h"
#include "platform/system_files.h"

namespace cli {

/// The real system, installed as the program's services while this object exists. Settings and
/// message boxes are passed in, because they differ between a window and an unattended run.
class SystemServices {
  public:
    SystemServices(platform::SettingsStore& settings, platform::MessageBoxes& boxes);
    ~SystemServices();
    SystemServices(const SystemServices&) = delete;
    SystemServices& operator=(const SystemServices&) = delete;

    const platform::QtEventLoop& Events() const { return events_; }

  private:
    platform::QtEventLoop events_;
    platform::SystemFiles files_;
    HtmlPageText page_text_{[this] { events_.DoEventsThrottled(); }};
    platform::QtProcessStarter processes_;
    platform::Services services_;
};

}  // namespace cli
