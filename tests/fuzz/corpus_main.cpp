// Runs a fuzz target once over each file of a folder, where there is no fuzzing library.

#include "platform/Files.h"

#include <cstdint>
#include <cstdio>
#include <filesystem>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

int main(int argc, char** argv) {
    int files = 0;
    for (int i = 1; i < argc; ++i)
        for (const auto& entry : std::filesystem::directory_iterator(argv[i])) {
            const auto bytes = skyvert::readWholeFile(entry.path());
            if (!bytes)
                continue;
            std::printf("%s\n", skyvert::pathText(entry.path()).c_str());
            LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes->data()),
                                   bytes->size());
            ++files;
        }
    return files > 0 ? 0 : 1;
}
