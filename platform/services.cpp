#include "platform/services.h"

#include <cassert>

namespace platform {

namespace {
const Services* g_host = nullptr;
}

const Services& Host() {
    assert(g_host != nullptr);
    return *g_host;
}

void InstallHost(const Services* services) {
    g_host = services;
}

}  // namespace platform
