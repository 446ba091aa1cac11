#pragma once

#include "platform/Dialogs.h"

#include <QFileDialog>

namespace skyvert {

/// The desktop's own file dialogs and message boxes.
class QtDialogs final : public Dialogs {
public:
    std::optional<std::filesystem::path> GetOpenFolderItem(const FileType& filter) override;
    std::optional<std::filesystem::path> GetSaveFolderItem(const FileType& filter,
                                                           std::string_view defaultName) override;
    void MsgBox(std::string_view text) override;

private:
    std::optional<std::filesystem::path> ask(QFileDialog& dialog, const FileType& filter);

    QString folder_; ///< where the user was last, within this run
};

} // namespace skyvert
