#pragma once

#include "controls/Dialogs.h"

namespace skyvert {

/// The desktop's own file dialogs and message boxes.
///
/// The folder to start in is kept by Qt, in the settings that all its programs share, and nowhere
/// else. Qt would keep whatever folder was looked at; here it is only what `StartIn` is told.
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
