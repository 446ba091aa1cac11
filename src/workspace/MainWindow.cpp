#include "workspace/MainWindow.h"

#include "shell/MainWindowLayout.h"

namespace skyvert {

namespace {

using namespace std::chrono_literals;

const ControlLayout& layoutRow(std::string_view name) {
    return layoutOf(mainWindowLayout(), name);
}

void addDialects(Popup& popup) {
    for (const Dialect& dialect : dialects())
        popup.AddRow(dialect.name);
    popup.setListIndex(1);
}

} // namespace

MainWindow::MainWindow(App& app)
    : Window(layoutRow("MainWindow")),
      fromEpoch(layoutRow("fromEpoch"), app.desktop().clock, app.desktop().locale),
      toEpoch(layoutRow("toEpoch"), app.desktop().clock, app.desktop().locale),
      inFormat(layoutRow("inFormat"), app.desktop().locale),
      outFormat(layoutRow("outFormat"), app.desktop().locale),
      list(layoutRow("list"), {"Input RA", "Input Dec", "Output RA", "Output Dec"}),
      GroupBox1(layoutRow("GroupBox1")), Label1(layoutRow("Label1")),
      fileFormat(layoutRow("fileFormat")), FileImportBtn(layoutRow("FileImportBtn")),
      GroupBox2(layoutRow("GroupBox2")), Label2(layoutRow("Label2")), Label3(layoutRow("Label3")),
      raManual(layoutRow("raManual")), decManual(layoutRow("decManual")),
      ManualEnterBtn(layoutRow("ManualEnterBtn")), DataEntryMask(layoutRow("DataEntryMask")),
      ClearListButton(layoutRow("ClearListButton")), GroupBox3(layoutRow("GroupBox3")),
      Label4(layoutRow("Label4")), ListFormat(layoutRow("ListFormat")),
      ExportListBtn(layoutRow("ExportListBtn")), FormatChangeTimer(app.desktop().scheduler, 10ms),
      OpenTimer(app.desktop().scheduler, 500ms), app_(app) {
    setHeightRange(kMainWindowMinimumHeight, kMainWindowMaximumHeight);
    setChildren({&fromEpoch,     &toEpoch,         &inFormat,   &outFormat,     &list,
                 &GroupBox1,     &Label1,          &fileFormat, &FileImportBtn, &GroupBox2,
                 &Label2,        &Label3,          &raManual,   &decManual,     &ManualEnterBtn,
                 &DataEntryMask, &ClearListButton, &GroupBox3,  &Label4,        &ListFormat,
                 &ExportListBtn});
    addDialects(fileFormat);
    addDialects(ListFormat);
    ManualEnterBtn.setDefault(true);
    ManualEnterBtn.setEnabled(false);
    ClearListButton.setEnabled(false);
    wireHandlers();
    OpenTimer.setMode(Timer::Mode::Single);
}

/// Gives every control its handlers. Nothing has run before, so no control tells of its making.
void MainWindow::wireHandlers() {
    fromEpoch.ValueChanged = [this](EpochSelector& sender, const Date& date) {
        fromEpoch_ValueChanged(sender, date);
    };
    toEpoch.ValueChanged = [this](EpochSelector& sender, const Date& date) {
        toEpoch_ValueChanged(sender, date);
    };
    inFormat.FormatChanged = [this](FormatSelector& sender, const RADecFormat& format) {
        inFormat_FormatChanged(sender, format);
    };
    list.CellBackgroundPaint = [this](Graphics& graphics, std::int64_t row, std::int64_t column) {
        return list_CellBackgroundPaint(graphics, row, column);
    };
    FileImportBtn.Action = [this](PushButton& sender) { FileImportBtn_Action(sender); };
    ExportListBtn.Action = [this](PushButton& sender) { ExportListBtn_Action(sender); };
    raManual.TextChange = [this](TextField& sender) { raManual_TextChange(sender); };
    decManual.TextChange = [this](TextField& sender) { decManual_TextChange(sender); };
    ManualEnterBtn.Action = [this](PushButton& sender) { ManualEnterBtn_Action(sender); };
    raManual.Paste = [this](TextField& sender, std::string_view text) {
        return raManual_Paste(sender, text);
    };
    DataEntryMask.Action = [this](CheckBox& sender) { DataEntryMask_Action(sender); };
    ClearListButton.Action = [this](PushButton& sender) { ClearListButton_Action(sender); };
    FormatChangeTimer.Action = [this](Timer& sender) { FormatChangeTimer_Action(sender); };
    OpenTimer.Action = [this](Timer& sender) { OpenTimer_Action(sender); };

    fromEpoch.Open = [this] { fromEpoch_Open(fromEpoch); };
    toEpoch.Open = [this] { toEpoch_Open(toEpoch); };
    inFormat.Open = [this] { inFormat_Open(inFormat); };
    outFormat.Open = [this] { outFormat_Open(outFormat); };
    fileFormat.Open = [this] { fileFormat_Open(fileFormat); };
    raManual.Open = [this] { raManual_Open(raManual); };
    decManual.Open = [this] { decManual_Open(decManual); };
    DataEntryMask.Open = [this] { DataEntryMask_Open(DataEntryMask); };
    ListFormat.Open = [this] { ListFormat_Open(ListFormat); };
    Open = [this] { Event_Open(); };

    fromEpoch.Close = [this] { fromEpoch_Close(fromEpoch); };
    toEpoch.Close = [this] { toEpoch_Close(toEpoch); };
    inFormat.Close = [this] { inFormat_Close(inFormat); };
    outFormat.Close = [this] { outFormat_Close(outFormat); };
    fileFormat.Close = [this] { fileFormat_Close(fileFormat); };
    DataEntryMask.Close = [this] { DataEntryMask_Close(DataEntryMask); };
    ListFormat.Close = [this] { ListFormat_Close(ListFormat); };
    Close = [this] { Event_Close(); };
}

} // namespace skyvert
