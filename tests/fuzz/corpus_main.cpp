// Runs a fuzz target over each file of a folder and over much that is one byte away from it: cut
// off, changed, inserted. For builds without a fuzzing library.

#include "platform/Files.h"

#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

void run(const std::string& bytes) {
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
}

void runAround(const std::string& bytes) {
    run(bytes);
    for (std::size_t at = 0; at < bytes.size(); ++at) {
        run(bytes.substr(0, at));
        for (const char byte :
             {'\0', ' ', '7', '-', '.', ':', 'h', '<', '&', '/', '\x7F', '\xC2'}) {
            std::string changed = bytes;
            changed[at] = byte;
            run(changed);
            run(changed.insert(at + 1, 1, bytes[at]));
        }
    }
}

} // namespace

int main(int argc, char** argv) {
    int files = 0;
    for (const auto& entry : std::filesystem::directory_iterator(argc > 1 ? argv[1] : "."))
        if (const auto bytes = skyvert::readWholeFile(entry.path())) {
            std::puts(skyvert::pathText(entry.path()).c_str());
            runAround(*bytes);
            ++files;
        }
    return files > 0 ? 0 : 1;
}
