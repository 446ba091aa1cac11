#include "shell/MainWindowForm.h"

namespace skyvert {

MainWindowForm::MainWindowForm(const Desktop& desktop)
    : Window(Place{{"MainWindow", 0, 0, 893, 550, "Skyvert"}}), desktop_(desktop) {
    setHeightRange(500, 32000);
    ManualEnterBtn.setDefault(true);
    ManualEnterBtn.setEnabled(false);
    ClearListButton.setEnabled(false);
    OpenTimer.setMode(Timer::Mode::Single);
}

} // namespace skyvert
