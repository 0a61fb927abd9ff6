#include <io.h>
#include <windows.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "ui/output_stream.h"

namespace ui {

namespace {

HANDLE HandleOf(int descriptor) {
    return GetStdHandle(descriptor == 1 ? STD_OUTPUT_HANDLE : STD_ERROR_HANDLE);
}

bool IsConsole(HANDLE handle) {
    DWORD mode = 0;
    return GetConsoleMode(handle, &mode) != 0;
}

/// A console has a code page of its own for bytes, so it gets letters.
void WriteToConsole(HANDLE console, std::string_view text) {
    const int size = static_cast<int>(text.size());
    std::wstring wide(text.size(), L'\0');
    const int length = MultiByteToWideChar(CP_ACP, 0, text.data(), size, wide.data(), size);
    DWORD written = 0;
    WriteConsoleW(console, wide.data(), static_cast<DWORD>(length), &written, nullptr);
}

bool IsOpen(DWORD which) {
    const HANDLE handle = GetStdHandle(which);
    return handle != nullptr && handle != INVALID_HANDLE_VALUE &&
           GetFileType(handle) != FILE_TYPE_UNKNOWN;
}

/// Leads a stream of the C library, and the system's own handle for it, to the console.
void LeadToConsole(DWORD which, int descriptor, std::FILE* stream) {
    if (std::freopen("CONOUT$", "w", stream) == nullptr) return;
    _dup2(_fileno(stream), descriptor);
    SetStdHandle(which, reinterpret_cast<HANDLE>(_get_osfhandle(_fileno(stream))));
}

}  // namespace

bool OutputStream::IsTerminal() const {
    return IsConsole(HandleOf(descriptor_));
}

bool OutputStream::Ready(int milliseconds) const {
    // No pipe tells whether it has room; a write to it says what it took.
    if (milliseconds > 0) Sleep(static_cast<DWORD>(std::min(milliseconds, 10)));
    return true;
}

std::size_t OutputStream::Write(std::string_view text) {
    const HANDLE handle = HandleOf(descriptor_);
    if (IsConsole(handle)) {
        WriteToConsole(handle, text);
        return text.size();
    }
    // With this a full pipe takes nothing instead of waiting; files and the rest do not know it.
    DWORD no_wait = PIPE_NOWAIT;
    SetNamedPipeHandleState(handle, &no_wait, nullptr, nullptr);
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
    // A window needs no console, and would end with it.
    if (__argc < 2) return;
    const bool output = IsOpen(STD_OUTPUT_HANDLE);
    const bool error = IsOpen(STD_ERROR_HANDLE);
    const HANDLE given_output = GetStdHandle(STD_OUTPUT_HANDLE);
    const HANDLE given_error = GetStdHandle(STD_ERROR_HANDLE);
    if (!AttachConsole(ATTACH_PARENT_PROCESS)) return;
    if (output) SetStdHandle(STD_OUTPUT_HANDLE, given_output);
    if (error) SetStdHandle(STD_ERROR_HANDLE, given_error);
    if (!output) LeadToConsole(STD_OUTPUT_HANDLE, 1, stdout);
    if (!error) LeadToConsole(STD_ERROR_HANDLE, 2, stderr);
}

}  // namespace ui
