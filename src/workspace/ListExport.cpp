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
    // If no dialect is selected, the file is empty.
    if (dialect != nullptr && !exportList(*dialect, stream))
        return; // the stream is not closed, so the old file stays unchanged
    stream.Close();
    desktop_.dialogs.StartIn(file->parent_path());
}

/// Writes the headings (row -1) and all rows, one line each. Returns false if it was stopped.
bool MainWindow::exportList(const Dialect& dialect, TextOutputStream& stream) {
    RowWork work(desktop_.progress, "Exporting", StoppedBy::User);
    std::vector<std::string_view> fields(static_cast<std::size_t>(list.ColumnCount()));
    std::string line;
    bool mayContinue = true;
    for (std::int64_t row = -1; mayContinue && row < list.RowCount(); ++row) {
        for (std::int64_t column = 0; column < list.ColumnCount(); ++column)
            fields[static_cast<std::size_t>(column)] =
                row < 0 ? list.Heading(column) : list.Cell(row, column);
        line.clear();
        appendRecord(fields, dialect, line);
        stream.WriteLine(line);
        mayContinue = work.rowDone([&] { return partOf(row, list.RowCount()); });
    }
    return mayContinue;
}

} // namespace skyvert
