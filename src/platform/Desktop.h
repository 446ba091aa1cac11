#pragma once

#include "platform/Clock.h"
#include "platform/Dialogs.h"
#include "platform/Locale.h"
#include "platform/Progress.h"
#include "platform/Timer.h"

namespace skyvert {

/// The machine as the program sees it. The owner keeps every part alive as long as the program.
struct Desktop {
    const Locale& locale;
    const Clock& clock;
    Scheduler& scheduler;
    Dialogs& dialogs;
    Progress& progress;
};

} // namespace skyvert
