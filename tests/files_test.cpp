#include <gtest/gtest.h>

#include <filesystem>

#include "platform/system_files.h"
#include "tests/contracts/files_contract.h"
#include "tests/fakes/memory_files.h"
#include "tests/fakes/temp_folder.h"
#include "text/text.h"

namespace contracts {

INSTANTIATE_TEST_SUITE_P(Memory, FilesContract, testing::Values([] {
                             auto files = std::make_unique<fakes::MemoryFiles>();
                             files->Have("z:\\work");
                             return FilesUnderTest{std::move(files), "z:\\work", nullptr};
                         }));

/// On the system's disk, in a folder below `depth` others with long names.
FilesUnderTest SystemFilesIn(int depth) {
    auto folder = std::make_shared<fakes::TempFolder>();
    auto files = std::make_unique<platform::SystemFiles>("/");
    std::string path = folder->Text();
    while (depth-- > 0) {
        files->CreateFolder(path += "\\" + std::string(100, 'n'));
    }
    const auto other_case = text::UpperCase(folder->SystemPath().string());
    return {std::move(files), path, folder, !std::filesystem::exists(other_case)};
}

INSTANTIATE_TEST_SUITE_P(System, FilesContract,
                         testing::Values([] { return SystemFilesIn(0); },
                                         [] { return SystemFilesIn(5); }));

}  // namespace contracts
