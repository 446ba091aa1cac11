#pragma once

#include "controls/Dialogs.h"
#include "controls/Progress.h"
#include "controls/Timer.h"
#include "platform/Clock.h"
#include "platform/Locale.h"

namespace skyvert {

/// Everything that the program uses of the desktop. All parts must outlive the program's objects.
struct Desktop {
    const Locale& locale;
    const Clock& clock;
    Scheduler& scheduler;
    Dialogs& dialogs;
    Progress& progress;
};

} // namespace skyvert
