#include "notation/LookAlikes.h"
#include "platform/Text.h"
#include "platform/TextInputStream.h"
#include "shell/FileTypes.h"
#include "workspace/MainWindow.h"

#include <span>

namespace skyvert {

namespace {

/// A line that holds no position: nothing but one blank field, or no field at all.
bool holdsNothing(std::span<const std::string_view> fields) {
    return fields.empty() || (fields.size() == 1 && isBlank(fields[0]));
}

} // namespace

void MainWindow::FileImportBtn_Action(PushButton& /*sender*/) {
    if (refusesSpaces(fileFormat, inFormat))
        return;
    const auto file = app_.desktop().dialogs.GetOpenFolderItem(FileTypes::Any);
    if (!file || isClosed())
        return;
    importFile(*file);
    app_.desktop().dialogs.StartIn(file->parent_path());
}

void MainWindow::FilesDropped(std::span<const std::filesystem::path> files) {
    if (refusesSpaces(fileFormat, inFormat))
        return;
    bool goesOn = true;
    for (const std::filesystem::path& file : files) {
        if (goesOn && !isClosed())
            dispatch(app_.desktop().dialogs, [&] { goesOn = importFile(file); });
    }
}

/// Adds the positions in a file. Returns false when the user has stopped it.
bool MainWindow::importFile(const std::filesystem::path& file) {
    TextInputStream stream = TextInputStream::Open(file);
    RowWork work(app_.desktop().progress, "Importing", StoppedBy::User);
    const auto fraction = [&stream] { return stream.fractionRead(); };
    bool goesOn = true;
    while (goesOn && !stream.endOfFile()) {
        const std::string_view line = stream.ReadLine();
        importLine(line);
        goesOn = work.rowDone(fraction, line.size());
        while (goesOn && stream.skipPiece())
            goesOn = work.bytesDone(fraction, TextInputStream::kPieceSize);
    }
    stream.Close();
    return goesOn;
}

/// Adds the position in one line of a file; what stands behind the second field is ignored.
void MainWindow::importLine(std::string_view line) {
    const auto fields = lines_.split(line, dialectNamed(fileFormat.value()));
    if (holdsNothing(fields))
        return;
    const std::string_view dec = fields.size() > 1 ? fields[1] : std::string_view();
    ConvertCoordinates(foldLookAlikes(fields[0], foldedRA_), foldLookAlikes(dec, foldedDec_));
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
