#include "shell/App.h"

#include "platform/Text.h"

#include <utility>

namespace skyvert {

App::App(const Desktop& desktop, std::filesystem::path applicationData)
    : desktop_(desktop), applicationData_(std::move(applicationData)) {}

void App::Event_Open() {
    prefs_.emplace(applicationData_, kSettingsFolder, "Preferences.xml");
}

void App::Event_Close() {
    prefs().Close();
    prefs_.reset();
}

bool App::IsEventImplemented(std::string_view event) {
    return equalsIgnoringCase(event, "Open") || equalsIgnoringCase(event, "Close");
}

VersionData App::version() {
    return {.MajorVersion = SKYVERT_MAJOR,
            .MinorVersion = SKYVERT_MINOR,
            .BugVersion = SKYVERT_BUG,
            .StageCode = 1,
            .NonReleaseVersion = 3,
            .Version = SKYVERT_VERSION};
}

void App::Quit(int code) const {
    if (onQuit)
        onQuit(code);
}

} // namespace skyvert
