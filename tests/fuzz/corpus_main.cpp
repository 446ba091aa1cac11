// Runs a fuzz target once over each file of a folder, where there is no fuzzing library.

#include "platform/Files.h"

#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

int main(int argc, char** argv) {
    int files = 0;
    for (const auto& entry : std::filesystem::directory_iterator(argc > 1 ? argv[1] : "."))
        if (const auto bytes = skyvert::readWholeFile(entry.path())) {
            std::puts(skyvert::pathText(entry.path()).c_str());
            LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes->data()),
                                   bytes->size());
            ++files;
        }
    return files > 0 ? 0 : 1;
}
