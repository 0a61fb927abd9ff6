#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <cerrno>

#include "cli/output_stream.h"

namespace cli {

bool OutputStream::IsTerminal() const {
    return isatty(descriptor_) != 0;
}

bool OutputStream::Ready(int milliseconds) const {
    pollfd stream{descriptor_, POLLOUT, 0};
    return poll(&stream, 1, milliseconds) > 0;
}

bool OutputStream::ReaderGone() const {
    pollfd stream{descriptor_, 0, 0};
    return reader_gone_ || (poll(&stream, 1, 0) > 0 && (stream.revents & POLLERR) != 0);
}

std::size_t OutputStream::Write(std::string_view text) {
    // A pipe that is ready has room for this much. Making it non-blocking would also affect the
    // shell that shares it.
    constexpr std::size_t kPart = 512;
    std::size_t taken = 0;
    while (taken < text.size() && Ready()) {
        const std::string_view part = text.substr(taken, kPart);
        const ssize_t written = write(descriptor_, part.data(), part.size());
        if (written < 0) {
            reader_gone_ = errno == EPIPE;
            if (errno == EINTR || errno == EAGAIN) break;
            return text.size();
        }
        taken += static_cast<std::size_t>(written);
    }
    return taken;
}

void OpenClosedStreams() {
    int descriptor = open("/dev/null", O_RDWR);
    while (descriptor >= 0 && descriptor <= STDERR_FILENO)
        descriptor = open("/dev/null", O_RDWR);
    if (descriptor >= 0) close(descriptor);
}

}  // namespace cli
