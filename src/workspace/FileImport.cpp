#include "notation/LookAlikes.h"
#include "platform/Files.h"
#include "shell/FileTypes.h"
#include "workspace/MainWindow.h"

namespace skyvert {

namespace {

/// A line that holds no position: nothing but one empty or blank field, or no field at all.
bool isBlank(std::span<const std::string_view> fields) {
    return fields.empty() ||
           (fields.size() == 1 && fields[0].find_first_not_of(" \t") == std::string_view::npos);
}

} // namespace

void MainWindow::FileImportBtn_Action(PushButton& /*sender*/) {
    if (refusesSpaces(fileFormat, inFormat))
        return;
    const auto file = app_.desktop().dialogs.GetOpenFolderItem(FileTypes::Any);
    if (!file)
        return;
    TextInputStream stream = TextInputStream::Open(*file);
    while (!stream.endOfFile())
        importLine(stream.ReadLine());
    stream.Close();
}

/// Adds the position in one line of a file; what stands behind the second field is ignored.
void MainWindow::importLine(std::string_view line) {
    const auto fields =
        lines_.split(FoldLookAlikes(line, foldedLine_), dialectNamed(fileFormat.value()));
    if (!isBlank(fields))
        ConvertCoordinates(fields[0], fields.size() > 1 ? fields[1] : std::string_view());
}

/// Tells the user when a popup's dialect separates by the very blanks that the notations hold.
bool MainWindow::refusesSpaces(const Popup& dialect, const FormatSelector& format) {
    if (dialectNamed(dialect.value()) != Dialect::Space || !format.ContainsSpaces())
        return false;
    app_.desktop().dialogs.MsgBox("The file format is incompatible with the data format (i.e. the "
                                  "data contain spaces)!");
    return true;
}

} // namespace skyvert
