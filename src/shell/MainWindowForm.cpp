#include "shell/MainWindowForm.h"

namespace skyvert {

namespace {

using namespace std::chrono_literals;

} // namespace

MainWindowForm::MainWindowForm(const Desktop& desktop)
    : Window(Place{{"MainWindow", 0, 0, 893, 550, "Skyvert"}}), desktop_(desktop),
      FormatChangeTimer(desktop.scheduler, 10ms), OpenTimer(desktop.scheduler, 500ms) {
    setHeightRange(500, 32000);
    ManualEnterBtn.setDefault(true);
    ManualEnterBtn.setEnabled(false);
    ClearListButton.setEnabled(false);
    OpenTimer.setMode(Timer::Mode::Single);
}

} // namespace skyvert
