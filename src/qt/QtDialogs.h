#pragma once

#include "controls/Dialogs.h"

namespace skyvert {

/// The desktop's own file dialogs and message boxes.
///
/// Qt stores the folder to start in, in the settings that all Qt programs share. It would store
/// every folder that the user browses; here only `StartIn` changes it.
class QtDialogs final : public Dialogs {
public:
    std::optional<std::filesystem::path> GetOpenFolderItem(const FileType& filter) override;
    std::optional<std::filesystem::path> GetSaveFolderItem(const FileType& filter,
                                                           std::string_view defaultName) override;
    void StartIn(const std::filesystem::path& folder) override;
    void MsgBox(std::string_view text) override;
    void ErrorBox(std::string_view text) override;
};

} // namespace skyvert
