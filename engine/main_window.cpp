#include "engine/main_window.h"

#include <cassert>

namespace engine {

namespace {
MainWindow* g_window = nullptr;
}

MainWindow& Window() {
    assert(g_window != nullptr);
    return *g_window;
}

bool CrawlIsRunning() {
    return !Window().Command1Enabled();
}

void SetWindow(MainWindow* window) {
    g_window = window;
}

}  // namespace engine
