#include "shell/FileTypes.h"
#include "workspace/MainWindow.h"

namespace skyvert {

void MainWindow::ExportListBtn_Action(PushButton& /*sender*/) {
    if (refusesSpaces(ListFormat, outFormat))
        return;
    const auto file = app_.desktop().dialogs.GetSaveFolderItem(FileTypes::Text, "list.txt");
    if (!file || isClosed())
        return;
    TextOutputStream stream = TextOutputStream::Create(*file);
    RowWork work(app_.desktop().progress, "Exporting", StoppedBy::User);
    for (std::int64_t row = -1; row < list.RowCount(); ++row) {
        exportRow(row, stream);
        if (!work.rowDone([&] { return partOf(row, list.RowCount()); }))
            return; // the stream leaves the old file in its place
    }
    stream.Close();
    app_.desktop().dialogs.StartIn(file->parent_path());
}

/// Writes one row as one line; row -1 are the headings. Without a dialect nothing is written.
void MainWindow::exportRow(std::int64_t row, TextOutputStream& stream) {
    std::array<std::string_view, 4> fields;
    for (std::size_t column = 0; column < fields.size(); ++column) {
        const auto index = static_cast<std::int64_t>(column);
        fields[column] = row < 0 ? std::string_view(list.Heading(index)) : list.Cell(row, index);
    }
    const Dialect dialect = dialectNamed(ListFormat.value());
    if (dialect == Dialect::None)
        return;
    exportLine_.clear();
    appendRecord(fields, dialect, exportLine_);
    stream.WriteLine(exportLine_);
}

} // namespace skyvert
