#pragma once

#include "platform/Date.h"

namespace skyvert {

/// Tells the present moment. Whoever asks for it is given a clock, so that a test can stop time.
class Clock {
public:
    virtual ~Clock() = default;

    virtual Date now() const = 0;
};

/// The machine's clock in the machine's time zone.
class SystemClock : public Clock {
public:
    Date now() const override;
};

} // namespace skyvert
