#include "shell/FileTypes.h"
#include "workspace/MainWindow.h"

namespace skyvert {

void MainWindow::ExportListBtn_Action() {
    if (refusesSpaces(ListFormat, outFormat))
        return;
    const auto file = desktop_.dialogs.GetSaveFolderItem(FileTypes::Text, "list.txt");
    if (!file || isClosed())
        return;
    TextOutputStream stream = TextOutputStream::Create(*file);
    const Dialect* const dialect = dialectNamed(ListFormat.value());
    // Without a dialect the file stays empty.
    if (dialect != nullptr && !exportList(*dialect, stream))
        return; // the stream leaves the old file in its place
    stream.Close();
    desktop_.dialogs.StartIn(file->parent_path());
}

/// Writes the headings, as row -1, and all rows, each as one line. Returns false when the user has
/// stopped it.
bool MainWindow::exportList(const Dialect& dialect, TextOutputStream& stream) {
    RowWork work(desktop_.progress, "Exporting", StoppedBy::User);
    std::vector<std::string_view> fields(static_cast<std::size_t>(list.ColumnCount()));
    std::string line;
    bool goesOn = true;
    for (std::int64_t row = -1; goesOn && row < list.RowCount(); ++row) {
        for (std::int64_t column = 0; column < list.ColumnCount(); ++column)
            fields[static_cast<std::size_t>(column)] =
                row < 0 ? list.Heading(column) : list.Cell(row, column);
        line.clear();
        appendRecord(fields, dialect, line);
        stream.WriteLine(line);
        goesOn = work.rowDone([&] { return partOf(row, list.RowCount()); });
    }
    return goesOn;
}

} // namespace skyvert
