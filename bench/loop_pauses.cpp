// Records how long the program's event loop does not look for events. Load it into the program:
//
//     LD_PRELOAD=build/release/bench/libloop_pauses.so VANTORIN_PAUSES=FILE vantorin ...
//
// Each iteration of the loop, also a nested one, ends in poll or ppoll. FILE gets a line for each
// pause from the end of one such call to the start of the next one on the first thread: when it
// began (seconds of the monotonic clock) and how long it was (milliseconds).
#include <dlfcn.h>
#include <poll.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <vector>

namespace {

struct Pause {
    double began;
    double seconds;
};

double Now() {
    timespec now;
    clock_gettime(CLOCK_MONOTONIC, &now);
    return static_cast<double>(now.tv_sec) + 1e-9 * static_cast<double>(now.tv_nsec);
}

class Pauses {
  public:
    ~Pauses() {
        const char* const name = std::getenv("VANTORIN_PAUSES");
        std::FILE* const file = name != nullptr ? std::fopen(name, "w") : nullptr;
        if (file == nullptr) return;
        for (const Pause& pause : pauses_)
            std::fprintf(file, "%.6f %.3f\n", pause.began, 1000 * pause.seconds);
        std::fclose(file);
    }
    void End() {
        if (began_ != 0) pauses_.push_back({began_, Now() - began_});
    }
    void Begin() { began_ = Now(); }

  private:
    double began_ = 0;
    std::vector<Pause> pauses_;
};

Pauses g_pauses;

/// Calls the real function with this name.
template <typename... Arguments>
int Watched(const char* name, Arguments... arguments) {
    const auto real = reinterpret_cast<int (*)(Arguments...)>(dlsym(RTLD_NEXT, name));
    const bool is_first_thread = syscall(SYS_gettid) == getpid();
    if (is_first_thread) g_pauses.End();
    const int result = real(arguments...);
    if (is_first_thread) g_pauses.Begin();
    return result;
}

}  // namespace

extern "C" int poll(pollfd* entries, nfds_t count, int milliseconds) {
    return Watched("poll", entries, count, milliseconds);
}

extern "C" int ppoll(pollfd* entries, nfds_t count, const timespec* timeout, const sigset_t* mask) {
    return Watched("ppoll", entries, count, timeout, mask);
}
