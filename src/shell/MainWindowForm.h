#pragma once

#include "controls/Desktop.h"
#include "controls/Listbox.h"
#include "controls/Timer.h"
#include "controls/Window.h"
#include "shell/EpochSelector.h"
#include "shell/FormatSelector.h"
#include "shell/Popup.h"

#include <chrono>

namespace skyvert {

/// The layout of the main window: its controls in order of creation, their positions and their
/// initial state. `workspace/MainWindow` adds the handlers, the columns of the list and the rows of
/// the popups, and replaces the texts "xxx" when the entry fields open.
class MainWindowForm : public Window {
protected:
    /// Starts `OpenTimer`. `desktop` must outlive the window.
    explicit MainWindowForm(const Desktop& desktop);

    const Desktop& desktop_;

public:
    // clang-format off
    EpochSelector  fromEpoch      {child({"fromEpoch",                  20,  14, 226, 103, "Input Epoch"}), desktop_.clock, desktop_.locale};
    EpochSelector  toEpoch        {child({"toEpoch",                    20, 129, 226, 103, "Output Epoch"}), desktop_.clock, desktop_.locale};
    FormatSelector inFormat       {child({"inFormat",                  258,  14, 300, 158, "Input Format"}), desktop_.locale};
    FormatSelector outFormat      {child({"outFormat",                 570,  14, 303, 158, "Output Format"}), desktop_.locale};
    Listbox        list           {child({"list",                       20, 244, 853, 222, "", kLockAll})};
    GroupBox       GroupBox1      {child({"GroupBox1",                 258, 173, 300,  59, "File Import"})};
    Label          Label1         {child(GroupBox1, {"Label1",         266, 200,  50,  20, "Format:"})};
    Popup          fileFormat     {child(GroupBox1, {"fileFormat",     322, 202, 146,  20})};
    PushButton     FileImportBtn  {child(GroupBox1, {"FileImportBtn",  478, 200,  71,  20, "Import..."})};
    GroupBox       GroupBox2      {child({"GroupBox2",                  20, 471, 562,  59, "Manual Entry", kLockBottomLeft})};
    Label          Label2         {child(GroupBox2, {"Label2",          28, 499,  22,  20, "RA:"})};
    Label          Label3         {child(GroupBox2, {"Label3",         166, 499,  25,  20, "Dec:"})};
    TextField      raManual       {child(GroupBox2, {"raManual",        53, 497, 101,  22, "xxx"})};
    TextField      decManual      {child(GroupBox2, {"decManual",      199, 497, 112,  22, "xxx"})};
    PushButton     ManualEnterBtn {child(GroupBox2, {"ManualEnterBtn", 323, 497,  80,  20, "Enter"})};
    CheckBox       DataEntryMask  {child(GroupBox2, {"DataEntryMask",  415, 498, 152,  20, "Use data entry mask"})};
    PushButton     ClearListButton{child({"ClearListButton",           802, 478,  71,  20, "Clear", kLockBottomLeft})};
    GroupBox       GroupBox3      {child({"GroupBox3",                 570, 173, 303,  59, "List Export"})};
    Label          Label4         {child(GroupBox3, {"Label4",         578, 200,  50,  20, "Format:"})};
    Popup          ListFormat     {child(GroupBox3, {"ListFormat",     634, 202, 147,  20})};
    PushButton     ExportListBtn  {child(GroupBox3, {"ExportListBtn",  792, 200,  72,  20, "Export..."})};
    // clang-format on
    Timer FormatChangeTimer{desktop_.scheduler, std::chrono::milliseconds(10)};
    Timer OpenTimer{desktop_.scheduler, std::chrono::milliseconds(500)};
};

} // namespace skyvert
