#include "qt/QtDialogs.h"

#include "qt/QtText.h"

#include <QApplication>
#include <QMessageBox>

namespace skyvert {

namespace {

/// The choices of files to be listed: those of the type, then all. Example of the first:
/// "text/plain (*.asc *.txt)".
QStringList nameFilters(const FileType& type) {
    const QString all = "All files (*)";
    if (type.Extensions.empty())
        return {all};
    const QStringList extensions = toQString(type.Extensions).split(';');
    return {toQString(type.Name) + " (*" + extensions.join(" *") + ")", all};
}

} // namespace

std::optional<std::filesystem::path> QtDialogs::GetOpenFolderItem(const FileType& filter) {
    QFileDialog dialog(QApplication::activeWindow(), {}, folder_);
    dialog.setFileMode(QFileDialog::ExistingFile);
    return ask(dialog, filter);
}

std::optional<std::filesystem::path> QtDialogs::GetSaveFolderItem(const FileType& filter,
                                                                  std::string_view defaultName) {
    QFileDialog dialog(QApplication::activeWindow(), {}, folder_);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    dialog.selectFile(toQString(defaultName));
    return ask(dialog, filter);
}

std::optional<std::filesystem::path> QtDialogs::ask(QFileDialog& dialog, const FileType& filter) {
    dialog.setOption(QFileDialog::HideNameFilterDetails);
    dialog.setNameFilters(nameFilters(filter));
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return std::nullopt;
    const QFileInfo chosen(dialog.selectedFiles().constFirst());
    folder_ = chosen.absolutePath();
    return chosen.filesystemFilePath();
}

void QtDialogs::MsgBox(std::string_view text) {
    QMessageBox box(QApplication::activeWindow());
    box.setWindowTitle(QCoreApplication::applicationName());
    box.setTextFormat(Qt::PlainText);
    box.setText(toQString(text));
    box.exec();
}

} // namespace skyvert
