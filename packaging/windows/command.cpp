// "vantorin.com", which a console runs as the command "vantorin".
//
// A console waits neither for a program with windows nor for its exit status. It waits for this
// one, which starts "vantorin.exe" beside it with the same arguments and streams, and returns its
// exit status.

#include <windows.h>

#include <cstdio>
#include <cwchar>
#include <string>

namespace {

/// The arguments after the program's name, as typed.
std::wstring Words(const wchar_t* line) {
    bool quoted = false;
    while (*line != L'\0' && (quoted || (*line != L' ' && *line != L'\t'))) {
        if (*line++ == L'"') quoted = !quoted;
    }
    return line + std::wcsspn(line, L" \t");
}

std::wstring ProgramBeside() {
    std::wstring path(32768, L'\0');
    path.resize(GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
    return path.substr(0, path.rfind(L'.')) + L".exe";
}

/// The stream if it is redirected to a file or a pipe; otherwise null, because the program finds
/// the console itself.
HANDLE Redirected(DWORD which) {
    const HANDLE handle = GetStdHandle(which);
    DWORD mode = 0;
    return GetConsoleMode(handle, &mode) ? nullptr : handle;
}

/// Ignores Ctrl+C here: the program notices it, too, and decides how to end.
BOOL WINAPI LeaveItToTheProgram(DWORD event) {
    return event == CTRL_C_EVENT || event == CTRL_BREAK_EVENT;
}

}  // namespace

int wmain(int argc, wchar_t** argv) {
    constexpr int kNotStarted = 1;
    const std::wstring program = ProgramBeside();
    std::wstring line = L'"' + program + L"\" " + Words(GetCommandLineW());
    SetConsoleCtrlHandler(LeaveItToTheProgram, TRUE);

    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdInput = Redirected(STD_INPUT_HANDLE);
    startup.hStdOutput = Redirected(STD_OUTPUT_HANDLE);
    startup.hStdError = Redirected(STD_ERROR_HANDLE);
    PROCESS_INFORMATION started{};
    if (!CreateProcessW(program.c_str(), line.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr,
                        &startup, &started)) {
        std::fputs("vantorin.exe, which belongs beside this command, cannot be started.\n", stderr);
        return kNotStarted;
    }
    // Without options it shows its window, and the console need not wait.
    if (argc < 2 || (argc == 2 && argv[1][0] != L'-')) return 0;
    WaitForSingleObject(started.hProcess, INFINITE);
    DWORD status = kNotStarted;
    GetExitCodeProcess(started.hProcess, &status);
    return static_cast<int>(status);
}
