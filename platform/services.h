#pragma once

#include "platform/event_loop.h"
#include "platform/files.h"
#include "platform/message_box.h"
#include "platform/page_text.h"
#include "platform/process.h"
#include "platform/settings_store.h"

namespace platform {

/// The program's interfaces to the system. There is one of each for the life of the process.
struct Services {
    EventLoop& events;
    Files& files;
    SettingsStore& settings;
    PageText& page_text;
    ProcessStarter& processes;
    MessageBoxes& boxes;
};

/// The services in use. They are installed before anything else runs.
const Services& System();

/// Sets the services in use, or removes them if null. They must outlive their use.
void InstallSystem(const Services* services);

}  // namespace platform
