#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string_view>

namespace skyvert {

/// A type of file that the file dialogs offer.
struct FileType {
    std::string_view Name;
    std::string_view Extensions; ///< each with its dot, joined by ";"; empty for any file
    std::string_view MacType;
    std::string_view MacCreator;
    std::string_view MimeType;
    bool Imported = true;
    std::string_view ConformsTo;
    std::string_view UTI;
};

/// File dialogs and message boxes. Each is modal: its call returns after the user has answered.
class Dialogs {
public:
    virtual ~Dialogs() = default;

    /// Lets the user choose a file to open; nothing if the user cancels.
    virtual std::optional<std::filesystem::path> GetOpenFolderItem(const FileType& filter) = 0;

    /// Lets the user name a file to save; nothing if the user cancels.
    virtual std::optional<std::filesystem::path>
    GetSaveFolderItem(const FileType& filter, std::string_view defaultName) = 0;

    /// Sets the folder in which file dialogs open from now on, including later runs.
    virtual void StartIn(const std::filesystem::path& folder) = 0;

    /// Shows a message with one button.
    virtual void MsgBox(std::string_view text) = 0;

    /// Shows an error message with one button.
    virtual void ErrorBox(std::string_view text) = 0;
};

/// Runs a handler. An exception that leaves it is shown in a message box and ends here. Every
/// handler that the user, a timer or the system triggers runs through this function.
void dispatch(Dialogs& dialogs, const std::function<void()>& handler);

} // namespace skyvert
