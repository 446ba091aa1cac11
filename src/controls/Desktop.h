#pragma once

#include "controls/Dialogs.h"
#include "controls/Progress.h"
#include "controls/Timer.h"
#include "platform/Clock.h"
#include "platform/Locale.h"

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
