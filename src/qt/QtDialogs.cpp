#include "qt/QtDialogs.h"

#include "qt/QtText.h"

#include <QApplication>
#include <QFileDialog>
#include <QMessageBox>
#include <QSettings>
#include <QUrl>

namespace skyvert {

namespace {

/// The setting in which Qt's file dialogs store their last folder.
constexpr const char* kFolderKey = "FileDialog/lastVisited";

QSettings toolkitSettings() {
    return QSettings(QSettings::UserScope, "QtProject");
}

/// The folder in which file dialogs start: the stored one if it exists, otherwise the user's home.
QString startFolder() {
    const QString kept = toolkitSettings().value(kFolderKey).toUrl().toLocalFile();
    return QFileInfo(kept).isDir() ? kept : QDir::homePath();
}

/// The name filters of a dialog. `suffix` comes first, since Qt gives the file name the first
/// suffix of a filter that the user selects.
QStringList nameFilters(const FileType& type, const QString& suffix) {
    const QString all = "All files (*)";
    if (type.Extensions.empty())
        return {all};
    const QString first = "*." + suffix;
    QStringList patterns = ("*" + toQString(type.Extensions).replace(";", ";*")).split(';');
    patterns.removeAll(first);
    return {"Text files (" + first + ")",
            "Text documents and sources (" + first + " " + patterns.join(' ') + ")", all};
}

/// Whether the dialog itself asks before a file is replaced. A native dialog asks only for the name
/// as typed; Qt's dialog, the only one with a layout, asks for the name with the suffix.
bool isReplacementAsked(QFileDialog& dialog) {
    const QStringList completed = dialog.selectedFiles();
    const QString suffix = dialog.defaultSuffix();
    dialog.setDefaultSuffix({});
    const bool isAsTyped = dialog.selectedFiles() == completed;
    dialog.setDefaultSuffix(suffix);
    return dialog.layout() != nullptr || isAsTyped;
}

bool mayReplace(QFileDialog& dialog) {
    const QFileInfo file(dialog.selectedFiles().value(0));
    return isReplacementAsked(dialog) || !file.exists() ||
           QMessageBox::question(QApplication::activeWindow(), QCoreApplication::applicationName(),
                                 "\"" + file.fileName() + "\" already exists. Replace it?") ==
               QMessageBox::Yes;
}

/// Runs a dialog and activates the window again. If Return was pressed in the list of completions,
/// that list is still open when the window gets the focus, and Qt would ignore that.
bool isAccepted(QFileDialog& dialog) {
    const int answer = dialog.exec();
    QWidget* const window = dialog.parentWidget();
    if (window != nullptr && window->isVisible())
        QApplication::setActiveWindow(window);
    return answer == QDialog::Accepted;
}

/// Asks for a file. Resets the dialog's folder, since Qt would store the last one that was browsed.
std::optional<std::filesystem::path> ask(QFileDialog& dialog) {
    const QDir start = dialog.directory();
    const bool isChosen = isAccepted(dialog) && mayReplace(dialog);
    const QStringList chosen = dialog.selectedFiles();
    dialog.setDirectory(start);
    if (!isChosen || chosen.isEmpty())
        return std::nullopt;
    return QFileInfo(chosen.constFirst()).filesystemFilePath();
}

void showMessage(QMessageBox::Icon icon, std::string_view text) {
    QMessageBox box(QApplication::activeWindow());
    box.setIcon(icon);
    box.setWindowTitle(QCoreApplication::applicationName());
    box.setTextFormat(Qt::PlainText);
    box.setText(toQString(text));
    box.exec();
}

} // namespace

std::optional<std::filesystem::path> QtDialogs::GetOpenFolderItem(const FileType& filter) {
    QFileDialog dialog(QApplication::activeWindow(), {}, startFolder());
    dialog.setFileMode(QFileDialog::ExistingFile);
    dialog.setOption(QFileDialog::HideNameFilterDetails);
    dialog.setNameFilters(nameFilters(filter, {}));
    return ask(dialog);
}

std::optional<std::filesystem::path> QtDialogs::GetSaveFolderItem(const FileType& filter,
                                                                  std::string_view defaultName) {
    QFileDialog dialog(QApplication::activeWindow(), {}, startFolder());
    const QString name = toQString(defaultName);
    const QString suffix = QFileInfo(name).suffix();
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    dialog.setOption(QFileDialog::HideNameFilterDetails);
    dialog.setNameFilters(nameFilters(filter, suffix));
    dialog.setDefaultSuffix(suffix);
    dialog.selectFile(name); // last, since filters set later would change its suffix
    return ask(dialog);
}

void QtDialogs::StartIn(const std::filesystem::path& folder) {
    toolkitSettings().setValue(kFolderKey,
                               QUrl::fromLocalFile(QDir(folder).absolutePath()).toString());
}

void QtDialogs::MsgBox(std::string_view text) {
    showMessage(QMessageBox::Warning, text);
}

void QtDialogs::ErrorBox(std::string_view text) {
    showMessage(QMessageBox::Critical, text);
}

} // namespace skyvert
