#pragma once

#include "platform/Date.h"

namespace skyvert {

/// Source of the current time. Code that needs the time is given a clock, so that a test can
/// replace it.
class Clock {
public:
    virtual ~Clock() = default;

    /// The current date and time of day, in local time.
    virtual Date now() const = 0;
};

/// The system clock in the system's time zone.
class SystemClock : public Clock {
public:
    Date now() const override;
};

} // namespace skyvert
