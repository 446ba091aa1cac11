#include "shell/MainWindowLayout.h"

#include <array>

namespace skyvert {

namespace {

// clang-format off
constexpr std::array<ControlLayout, 22> kLayout{{
    {"MainWindow",      "",            0,   0, 893, 550, kLockTopLeft,    0, "Skyvert"},
    {"fromEpoch",       "",           20,  14, 226, 103, kLockTopLeft,    0, "Input Epoch"},
    {"toEpoch",         "",           20, 129, 226, 103, kLockTopLeft,    1, "Output Epoch"},
    {"inFormat",        "",          258,  14, 300, 158, kLockTopLeft,    2, "Input Format"},
    {"outFormat",       "",          570,  14, 303, 158, kLockTopLeft,    3, "Output Format"},
    {"list",            "",           20, 244, 853, 222, kLockAll,        4, ""},
    {"GroupBox1",       "",          258, 173, 300,  59, kLockTopLeft,    5, "File Import"},
    {"Label1",          "GroupBox1", 266, 200,  50,  20, kLockTopLeft,    0, "Format:"},
    {"fileFormat",      "GroupBox1", 322, 202, 146,  20, kLockTopLeft,    1, ""},
    {"FileImportBtn",   "GroupBox1", 478, 200,  71,  20, kLockTopLeft,    2, "Import..."},
    {"GroupBox2",       "",           20, 471, 562,  59, kLockBottomLeft, 6, "Manual Entry"},
    {"Label2",          "GroupBox2",  28, 499,  22,  20, kLockTopLeft,    0, "RA:"},
    {"Label3",          "GroupBox2", 166, 499,  25,  20, kLockTopLeft,    1, "Dec:"},
    {"raManual",        "GroupBox2",  53, 497, 101,  22, kLockTopLeft,    2, "xxx"},
    {"decManual",       "GroupBox2", 199, 497, 112,  22, kLockTopLeft,    3, "xxx"},
    {"ManualEnterBtn",  "GroupBox2", 323, 497,  80,  20, kLockTopLeft,    4, "Enter"},
    {"DataEntryMask",   "GroupBox2", 415, 498, 152,  20, kLockTopLeft,    5, "Use data entry mask"},
    {"ClearListButton", "",          802, 478,  71,  20, kLockBottomLeft, 7, "Clear"},
    {"GroupBox3",       "",          570, 173, 303,  59, kLockTopLeft,    8, "List Export"},
    {"Label4",          "GroupBox3", 578, 200,  50,  20, kLockTopLeft,    0, "Format:"},
    {"ListFormat",      "GroupBox3", 634, 202, 147,  20, kLockTopLeft,    1, ""},
    {"ExportListBtn",   "GroupBox3", 792, 200,  72,  20, kLockTopLeft,    2, "Export..."},
}};
// clang-format on

} // namespace

std::span<const ControlLayout> mainWindowLayout() {
    return kLayout;
}

} // namespace skyvert
