#pragma once

#include "platform/host_files.h"
#include "platform/inner_text/html_inner_text.h"
#include "platform/qt/qt_event_loop.h"
#include "platform/qt/qt_process_starter.h"
#include "platform/services.h"

namespace ui {

/// The machine that the program runs on, installed as the program's host while this lives. Settings
/// and message boxes differ between a window and an unattended run and are given.
class HostServices {
  public:
    HostServices(platform::SettingsStore& settings, platform::MessageBoxes& boxes);
    ~HostServices();
    HostServices(const HostServices&) = delete;
    HostServices& operator=(const HostServices&) = delete;

    const platform::QtEventLoop& Events() const { return events_; }

  private:
    platform::QtEventLoop events_;
    platform::HostFiles files_;
    platform::HtmlInnerText page_text_{[this] { events_.DoEventsOften(); }};
    platform::QtProcessStarter processes_;
    platform::Services services_;
};

}  // namespace ui
