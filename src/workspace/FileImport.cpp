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

/// Whether a line has no field, or only a single blank one.
bool isEmptyLine(std::span<const std::string_view> fields) {
    return fields.empty() || (fields.size() == 1 && isBlank(fields[0]));
}

/// Collects the errors of several files for a single message.
class Failures {
public:
    void add(std::string_view reason) {
        if (++count_ <= kMostShown)
            shown_.append(shown_.empty() ? "" : "\n").append(reason);
    }

    /// Empty when nothing went wrong.
    std::string text() const {
        return count_ <= kMostShown
                   ? shown_
                   : shown_ + "\nAnd " + std::to_string(count_ - kMostShown) + " more.";
    }

private:
    static constexpr std::size_t kMostShown = 5;

    std::size_t count_ = 0;
    std::string shown_;
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

/// Imports the files in order. Returns the error messages; empty if there were none.
std::string MainWindow::importFiles(std::span<const std::filesystem::path> files) {
    Failures failures;
    RowWork work(desktop_.progress, "Importing", StoppedBy::User);
    bool mayContinue = true;
    for (std::size_t index = 0; mayContinue && index < files.size(); ++index) {
        const auto ofAll = [&](double fraction) {
            return (static_cast<double>(index) + fraction) / static_cast<double>(files.size());
        };
        try {
            mayContinue = importFile(files[index], work, ofAll);
        } catch (const FileError& error) {
            failures.add(error.what());
        }
    }
    return failures.text();
}

/// Adds the positions in a file. `ofAll` converts the fraction of this file that has been read to
/// the fraction of all files. Returns false if the import was stopped.
bool MainWindow::importFile(const std::filesystem::path& file, RowWork& work,
                            const std::function<double(double)>& ofAll) {
    TextInputStream stream = TextInputStream::Open(file);
    const Dialect* const dialect = dialectNamed(fileFormat.value());
    const auto fraction = [&] { return ofAll(stream.fractionRead()); };
    bool mayContinue = true;
    while (mayContinue && !stream.endOfFile()) {
        const std::string_view line = stream.ReadLine();
        if (dialect != nullptr)
            importLine(line, *dialect);
        mayContinue = work.rowDone(fraction, line.size());
        while (mayContinue && stream.skipPiece())
            mayContinue = work.bytesDone(fraction, TextInputStream::kPieceSize);
    }
    stream.Close();
    return mayContinue;
}

/// Adds the position in one line of a file; fields after the second are ignored.
void MainWindow::importLine(std::string_view line, const Dialect& dialect) {
    const auto fields = lines_.split(line, dialect);
    if (isEmptyLine(fields))
        return;
    const std::string_view dec = fields.size() > 1 ? fields[1] : std::string_view();
    ConvertCoordinates(foldLookAlikes(fields[0], foldedRA_), foldLookAlikes(dec, foldedDec_));
}

/// Shows a message and returns true if the popup's dialect separates fields by blanks and a
/// notation of the format contains blanks.
bool MainWindow::refusesSpaces(const Popup& popup, const FormatSelector& format) {
    const Dialect* const dialect = dialectNamed(popup.value());
    if (dialect == nullptr || !dialect->separatesByBlanks() || !format.ContainsSpaces())
        return false;
    desktop_.dialogs.MsgBox("The file format is incompatible with the data format (i.e. the "
                            "data contain spaces)!");
    return true;
}

} // namespace skyvert
