#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace skyvert {

/// A kind of file, as the file dialogs offer it.
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

/// What the program asks of the person in front of it. Each call returns when it is answered.
class Dialogs {
public:
    virtual ~Dialogs() = default;

    /// Lets the user choose a file to open; nothing when the user cancels.
    virtual std::optional<std::filesystem::path> GetOpenFolderItem(const FileType& filter) = 0;

    /// Lets the user name a file to save; nothing when the user cancels.
    virtual std::optional<std::filesystem::path>
    GetSaveFolderItem(const FileType& filter, std::string_view defaultName) = 0;

    /// Opens the next file dialogs in this folder, those of later runs included.
    virtual void StartIn(const std::filesystem::path& folder) = 0;

    /// Shows a message with one button.
    virtual void MsgBox(std::string_view text) = 0;

    /// Shows why something has failed, with one button.
    virtual void ErrorBox(std::string_view text) = 0;
};

/// The one place where what leaves a handler as an exception ends: a message box with the reason.
/// Everything that a person, a timer or the system sets off runs through here.
void dispatch(Dialogs& dialogs, const std::function<void()>& handler);

} // namespace skyvert
