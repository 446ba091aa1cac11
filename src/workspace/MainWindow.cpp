#include "workspace/MainWindow.h"

namespace skyvert {

namespace {

void addDialects(Popup& popup) {
    for (const Dialect& dialect : dialects())
        popup.AddRow(dialect.name);
    popup.setListIndex(1);
}

} // namespace

MainWindow::MainWindow(App& app) : MainWindowForm(app.desktop()), app_(app) {
    showColumns();
    addDialects(fileFormat);
    addDialects(ListFormat);
    wireHandlers();
}

/// Connects the handlers. Changes made before this call do not run any of them.
void MainWindow::wireHandlers() {
    wire(fromEpoch.ValueChanged, &MainWindow::fromEpoch_ValueChanged);
    wire(toEpoch.ValueChanged, &MainWindow::toEpoch_ValueChanged);
    wire(inFormat.FormatChanged, &MainWindow::inFormat_FormatChanged);
    wire(list.CellBackgroundPaint, &MainWindow::list_CellBackgroundPaint);
    wire(FileImportBtn.Action, &MainWindow::FileImportBtn_Action);
    wire(raManual.Open, &MainWindow::raManual_Open);
    wire(raManual.TextChange, &MainWindow::raManual_TextChange);
    wire(raManual.Paste, &MainWindow::raManual_Paste);
    wire(decManual.Open, &MainWindow::decManual_Open);
    wire(decManual.TextChange, &MainWindow::decManual_TextChange);
    wire(ManualEnterBtn.Action, &MainWindow::ManualEnterBtn_Action);
    wire(DataEntryMask.Action, &MainWindow::DataEntryMask_Action);
    wire(ClearListButton.Action, &MainWindow::ClearListButton_Action);
    wire(ExportListBtn.Action, &MainWindow::ExportListBtn_Action);
    wire(FormatChangeTimer.Action, &MainWindow::FormatChangeTimer_Action);
    wire(OpenTimer.Action, &MainWindow::OpenTimer_Action);
    wire(Open, &MainWindow::Event_Open);
    wire(Close, &MainWindow::Event_Close);
    keepStates();
}

} // namespace skyvert
