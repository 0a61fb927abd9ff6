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

INSTANTIATE_TEST_SUITE_P(
    System, FilesContract, testing::Values([] {
        auto folder = std::make_shared<fakes::TempFolder>();
        auto files = std::make_unique<platform::SystemFiles>("/");
        const bool tells_case_apart =
            !std::filesystem::exists(text::UpperCase(folder->SystemPath().string()));
        return FilesUnderTest{std::move(files), folder->Text(), folder, tells_case_apart};
    }));

}  // namespace contracts
