#include "notation/LookAlikes.h"
#include "platform/Files.h"
#include "platform/Text.h"
#include "platform/TextInputStream.h"
#include "shell/FileTypes.h"
#include "workspace/MainWindow.h"

#include <functional>
#include <span>
#include <string>

namespace skyvert {

namespace {

/// A line that holds no position: nothing but one blank field, or no field at all.
bool holdsNothing(std::span<const std::string_view> fields) {
    return fields.empty() || (fields.size() == 1 && isBlank(fields[0]));
}

/// What went wrong with several files, to be told at once.
class Failures {
public:
    void add(std::string_view reason) {
        if (++count_ <= kTold)
            told_.append(told_.empty() ? "" : "\n").append(reason);
    }

    /// Empty when nothing went wrong.
    std::string text() const {
        return count_ <= kTold ? told_
                               : told_ + "\nAnd " + std::to_string(count_ - kTold) + " more.";
    }

private:
    static constexpr std::size_t kTold = 5;

    std::size_t count_ = 0;
    std::string told_;
};

} // namespace

void MainWindow::FileImportBtn_Action() {
    if (refusesSpaces(fileFormat, inFormat))
        return;
    const auto file = desktop_.dialogs.GetOpenFolderItem(FileTypes::Any);
    if (!file || isClosed())
        return;
    RowWork work(desktop_.progress, "Importing", StoppedBy::User);
    importFile(*file, work, [](double fraction) { return fraction; });
    desktop_.dialogs.StartIn(file->parent_path());
}

void MainWindow::FilesDropped(std::span<const std::filesystem::path> files) {
    if (refusesSpaces(fileFormat, inFormat))
        return;
    const std::string failures = importFiles(files);
    if (!failures.empty())
        desktop_.dialogs.ErrorBox(failures);
}

/// Returns what went wrong, empty for nothing.
std::string MainWindow::importFiles(std::span<const std::filesystem::path> files) {
    Failures failures;
    RowWork work(desktop_.progress, "Importing", StoppedBy::User);
    bool goesOn = true;
    for (std::size_t index = 0; goesOn && index < files.size(); ++index) {
        const auto ofAll = [&](double fraction) {
            return (static_cast<double>(index) + fraction) / static_cast<double>(files.size());
        };
        try {
            goesOn = importFile(files[index], work, ofAll);
        } catch (const FileError& error) {
            failures.add(error.what());
        }
    }
    return failures.text();
}

/// Adds the positions in a file. `ofAll` makes the part that is done of the whole work out of the
/// part that is done of the file. Returns false when the user has stopped it.
bool MainWindow::importFile(const std::filesystem::path& file, RowWork& work,
                            const std::function<double(double)>& ofAll) {
    TextInputStream stream = TextInputStream::Open(file);
    const Dialect* const dialect = dialectNamed(fileFormat.value());
    const auto fraction = [&] { return ofAll(stream.fractionRead()); };
    bool goesOn = true;
    while (goesOn && !stream.endOfFile()) {
        const std::string_view line = stream.ReadLine();
        if (dialect != nullptr)
            importLine(line, *dialect);
        goesOn = work.rowDone(fraction, line.size());
        while (goesOn && stream.skipPiece())
            goesOn = work.bytesDone(fraction, TextInputStream::kPieceSize);
    }
    stream.Close();
    return goesOn;
}

/// Adds the position in one line of a file; fields after the second are ignored.
void MainWindow::importLine(std::string_view line, const Dialect& dialect) {
    const auto fields = lines_.split(line, dialect);
    if (holdsNothing(fields))
        return;
    const std::string_view dec = fields.size() > 1 ? fields[1] : std::string_view();
    ConvertCoordinates(foldLookAlikes(fields[0], foldedRA_), foldLookAlikes(dec, foldedDec_));
}

/// Tells the user when a popup's dialect separates by the very blanks that the notations hold.
bool MainWindow::refusesSpaces(const Popup& popup, const FormatSelector& format) {
    const Dialect* const dialect = dialectNamed(popup.value());
    if (dialect == nullptr || dialect->separator != ' ' || !format.ContainsSpaces())
        return false;
    desktop_.dialogs.MsgBox("The file format is incompatible with the data format (i.e. the "
                            "data contain spaces)!");
    return true;
}

} // namespace skyvert
