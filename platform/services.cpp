#include "platform/services.h"

#include <cassert>

namespace platform {

namespace {
const Services* g_system = nullptr;
}

const Services& System() {
    assert(g_system != nullptr);
    return *g_system;
}

void InstallSystem(const Services* services) {
    g_system = services;
}

}  // namespace platform
