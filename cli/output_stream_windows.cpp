#include <windows.h>

#include <cstdlib>
#include <string>

#include "cli/output_stream.h"

namespace cli {

namespace {

HANDLE HandleOf(int descriptor) {
    return GetStdHandle(descriptor == 1 ? STD_OUTPUT_HANDLE : STD_ERROR_HANDLE);
}

bool IsConsole(HANDLE handle) {
    DWORD mode = 0;
    return GetConsoleMode(handle, &mode) != 0;
}

/// A console uses its own code page for bytes, so it gets wide characters.
void WriteToConsole(HANDLE console, std::string_view text) {
    const int size = static_cast<int>(text.size());
    std::wstring wide(text.size(), L'\0');
    const int length = MultiByteToWideChar(CP_ACP, 0, text.data(), size, wide.data(), size);
    DWORD written = 0;
    WriteConsoleW(console, wide.data(), static_cast<DWORD>(length), &written, nullptr);
}

/// Makes a pipe non-blocking for its lifetime. Other programs that write to the same pipe expect it
/// to block. Has no effect on files and other handles.
class NonBlockingPipe {
  public:
    explicit NonBlockingPipe(HANDLE handle) : handle_(handle) { Set(PIPE_NOWAIT); }
    ~NonBlockingPipe() { Set(PIPE_WAIT); }
    NonBlockingPipe(const NonBlockingPipe&) = delete;
    NonBlockingPipe& operator=(const NonBlockingPipe&) = delete;

  private:
    void Set(DWORD mode) const { SetNamedPipeHandleState(handle_, &mode, nullptr, nullptr); }
    HANDLE handle_;
};

bool IsOpen(DWORD which) {
    const HANDLE handle = GetStdHandle(which);
    return handle != nullptr && handle != INVALID_HANDLE_VALUE &&
           GetFileType(handle) != FILE_TYPE_UNKNOWN;
}

void LeadToConsole(DWORD which) {
    SetStdHandle(
        which, CreateFileW(L"CONOUT$", GENERIC_READ | GENERIC_WRITE,
                           FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING, 0, nullptr));
}

}  // namespace

bool OutputStream::IsTerminal() const {
    return IsConsole(HandleOf(descriptor_));
}

bool OutputStream::Ready(int milliseconds) const {
    // A pipe cannot be asked for its room. A write returns how much the pipe has accepted.
    constexpr int kBetweenWrites = 10;
    if (milliseconds != 0) Sleep(kBetweenWrites);
    return true;
}

bool OutputStream::ReaderGone() const {
    return reader_gone_;
}

std::size_t OutputStream::Write(std::string_view text) {
    const HANDLE handle = HandleOf(descriptor_);
    if (IsConsole(handle)) {
        WriteToConsole(handle, text);
        return text.size();
    }
    const NonBlockingPipe while_writing(handle);
    constexpr std::size_t kPart = 512;
    std::size_t taken = 0;
    DWORD written = 1;
    while (taken < text.size() && written > 0) {
        const std::string_view part = text.substr(taken, kPart);
        if (!WriteFile(handle, part.data(), static_cast<DWORD>(part.size()), &written, nullptr)) {
            const DWORD error = GetLastError();
            reader_gone_ = error == ERROR_NO_DATA || error == ERROR_BROKEN_PIPE ||
                           error == ERROR_PIPE_NOT_CONNECTED;
            return text.size();
        }
        taken += written;
    }
    return taken;
}

void OpenClosedStreams() {
    // The window needs no console, and would be closed together with it.
    if (__argc < 2 || (__argc == 2 && __argv[1][0] != '-')) return;
    const bool output_given = IsOpen(STD_OUTPUT_HANDLE);
    const bool error_given = IsOpen(STD_ERROR_HANDLE);
    const HANDLE output = GetStdHandle(STD_OUTPUT_HANDLE);
    const HANDLE error = GetStdHandle(STD_ERROR_HANDLE);
    AttachConsole(ATTACH_PARENT_PROCESS);  // also fails if already attached
    SetStdHandle(STD_OUTPUT_HANDLE, output);
    SetStdHandle(STD_ERROR_HANDLE, error);
    if (!output_given) LeadToConsole(STD_OUTPUT_HANDLE);
    if (!error_given) LeadToConsole(STD_ERROR_HANDLE);
}

}  // namespace cli
