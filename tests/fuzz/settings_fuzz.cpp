// Everything read from a settings file can be written and reads back the same.

#include "platform/Text.h"
#include "settings/XMLDictionary.h"

#include <cstdint>
#include <cstdlib>
#include <string>

using namespace skyvert;

namespace {

bool survives(const std::shared_ptr<Dictionary>& storage) {
    const std::string written = ExportXMLString(storage, false);
    std::string expected = written;
    // The reals that have no text of their own: too small for 15 decimals, or infinite.
    for (const char* real : {"-.0", "-inf", "inf"})
        expected = ReplaceAll(expected, "<real>" + std::string(real) + "<", "<real>.0<");
    const auto again = std::make_shared<Dictionary>();
    return LoadXML(again, written) && ExportXMLString(again, false) == expected &&
           LoadXML(std::make_shared<Dictionary>(), ExportXMLString(storage, true));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto storage = std::make_shared<Dictionary>();
    const bool loaded = LoadXML(storage, std::string(reinterpret_cast<const char*>(data), size));
    if (loaded ? !survives(storage) : storage->Count() > 0)
        std::abort();
    return 0;
}
