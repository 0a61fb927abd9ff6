// Replaces Windows' explorer: writes its own command line to a file.

#include <windows.h>

#include <cstdio>
#include <cstdlib>
#include <string>

int main() {
    const std::string file = std::getenv("STAND_IN_WRITES");
    std::FILE* const part = std::fopen((file + ".part").c_str(), "wb");
    if (part == nullptr) return 1;
    std::fputs(GetCommandLineA(), part);
    std::fclose(part);
    return std::rename((file + ".part").c_str(), file.c_str());
}
