#include "platform/Clock.h"

#include <ctime>

namespace skyvert {

Date SystemClock::now() const {
    const std::time_t moment = std::time(nullptr);
    std::tm local{};
#ifdef _WIN32
    localtime_s(&local, &moment);
#else
    localtime_r(&moment, &local);
#endif
    return {local.tm_year + 1900, local.tm_mon + 1, local.tm_mday,
            local.tm_hour,        local.tm_min,     local.tm_sec};
}

} // namespace skyvert
