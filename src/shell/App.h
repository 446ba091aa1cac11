#pragma once

#include "controls/Desktop.h"
#include "settings/Preferences.h"
#include "shell/MainMenuBar.h"

#include <filesystem>
#include <functional>
#include <optional>
#include <string_view>

namespace skyvert {

/// The version of the program, in parts and as text.
struct VersionData {
    int MajorVersion;
    int MinorVersion;
    int BugVersion;
    int StageCode;
    int NonReleaseVersion;
    std::string_view Version;
};

/// The application object: owns the menu bar, and the settings from its open event to its close
/// event. The open event is raised before the window is created, the close event after it has
/// closed.
class App {
public:
    /// `desktop` is the machine that the program runs on; it must outlive the application.
    /// `applicationData` is the folder that holds the user's settings of all programs.
    App(const Desktop& desktop, std::filesystem::path applicationData);

    /// Loads the settings.
    void Event_Open();

    /// Writes the settings if they have changed.
    void Event_Close();

    /// Whether the application handles an event of this name: "Open" and "Close" only.
    static bool IsEventImplemented(std::string_view event);

    /// The settings store. Throws `std::bad_optional_access` before the open event and after the
    /// close event.
    Preferences& prefs() { return prefs_.value(); }

    /// The folder that holds the settings file.
    std::filesystem::path settingsFolder() const { return applicationData_ / kSettingsFolder; }

    const Desktop& desktop() const { return desktop_; }

    /// The version set by the build.
    static VersionData version();

    const MainMenuBar& menuBar() const { return menuBar_; }

    /// Ends the event loop with an exit code after the current handler has returned.
    void Quit(int code) const;

    /// Ends the event loop; called by `Quit`.
    std::function<void(int code)> onQuit;

private:
    static constexpr std::string_view kSettingsFolder = "Skyvert";

    const Desktop& desktop_;
    std::filesystem::path applicationData_;
    std::optional<Preferences> prefs_;
    MainMenuBar menuBar_;
};

} // namespace skyvert
