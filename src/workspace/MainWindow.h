#pragma once

#include "controls/Listbox.h"
#include "controls/Timer.h"
#include "controls/Window.h"
#include "epochs/Precession.h"
#include "platform/TextOutputStream.h"
#include "shell/App.h"
#include "shell/EpochSelector.h"
#include "shell/FormatSelector.h"
#include "shell/Popup.h"
#include "workspace/DelimitedText.h"

#include <array>
#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace skyvert {

/// The one window: its controls, and what happens when they are used.
///
/// All positions go through `ConvertCoordinates` into `list`, typed ones, imported ones and those
/// that come back at the start. A row is four texts that never change: a change of an epoch or of
/// a notation reaches rows added later, and no others.
class MainWindow : public Window {
public:
    /// Creates all controls; `OpenTimer` starts to run. `app` must outlive the window.
    explicit MainWindow(App& app);

    // Conversion
    /// Parses a position in the input notation, precesses it from the input epoch to the output
    /// epoch, and adds and selects its row. Text that does not parse still makes a row, of the
    /// numbers that the parsers fall back on.
    void ConvertCoordinates(std::string_view ra, std::string_view dec);
    /// Brings the headings in line with the two epochs, and `ClearListButton` with the list.
    void EpochChange();
    void fromEpoch_ValueChanged(EpochSelector& sender, const Date& date);
    void toEpoch_ValueChanged(EpochSelector& sender, const Date& date);
    void inFormat_FormatChanged(FormatSelector& sender, const RADecFormat& format);
    void FormatChangeTimer_Action(Timer& sender);
    bool list_CellBackgroundPaint(Graphics& graphics, std::int64_t row, std::int64_t column) const;

    // Import and export
    void FileImportBtn_Action(PushButton& sender);
    /// Imports files one after another, as if each had been chosen in the dialog of
    /// `FileImportBtn`. A file that cannot be read is reported and keeps none of the others out;
    /// one that the user stops does.
    void FilesDropped(std::span<const std::filesystem::path> files);
    void ExportListBtn_Action(PushButton& sender);

    // Manual entry
    void raManual_Open(TextField& sender);
    void decManual_Open(TextField& sender);
    void raManual_TextChange(TextField& sender);
    void decManual_TextChange(TextField& sender);
    bool raManual_Paste(TextField& sender, std::string_view text);
    /// Enables `ManualEnterBtn` when both fields parse.
    void CheckManualData();
    void ManualEnterBtn_Action(PushButton& sender);
    void DataEntryMask_Action(CheckBox& sender);
    void ClearListButton_Action(PushButton& sender);

    // Save and restore
    void Event_Open();
    void Event_Close();
    /// Hands the input cells of all rows to the settings.
    void SaveContents();
    /// Rebuilds the list: converts every stored row again, under the epochs and notations of now.
    void LoadContents();
    void OpenTimer_Action(Timer& sender);
    void fromEpoch_Open(EpochSelector& sender);
    void fromEpoch_Close(EpochSelector& sender);
    void toEpoch_Open(EpochSelector& sender);
    void toEpoch_Close(EpochSelector& sender);
    void inFormat_Open(FormatSelector& sender);
    void inFormat_Close(FormatSelector& sender);
    void outFormat_Open(FormatSelector& sender);
    void outFormat_Close(FormatSelector& sender);
    void fileFormat_Open(Popup& sender);
    void fileFormat_Close(Popup& sender);
    void ListFormat_Open(Popup& sender);
    void ListFormat_Close(Popup& sender);
    void DataEntryMask_Open(CheckBox& sender);
    void DataEntryMask_Close(CheckBox& sender);

    EpochSelector fromEpoch;
    EpochSelector toEpoch;
    FormatSelector inFormat;
    FormatSelector outFormat;
    Listbox list;
    GroupBox GroupBox1;
    Label Label1;
    Popup fileFormat;
    PushButton FileImportBtn;
    GroupBox GroupBox2;
    Label Label2;
    Label Label3;
    TextField raManual;
    TextField decManual;
    PushButton ManualEnterBtn;
    CheckBox DataEntryMask;
    PushButton ClearListButton;
    GroupBox GroupBox3;
    Label Label4;
    Popup ListFormat;
    PushButton ExportListBtn;
    Timer FormatChangeTimer;
    Timer OpenTimer;

private:
    struct EpochPair {
        double fromJulian = 0.0;
        double toJulian = 0.0;

        friend bool operator==(const EpochPair&, const EpochPair&) = default;
    };

    void wireHandlers();

    Preferences& prefs() const { return app_.prefs(); }

    const Precession& precession();
    std::string importFiles(std::span<const std::filesystem::path> files);
    bool importFile(const std::filesystem::path& file, RowWork& work,
                    const std::function<double(double)>& ofAll);
    void importLine(std::string_view line, const Dialect& dialect);
    bool exportList(const Dialect& dialect, TextOutputStream& stream);
    bool refusesSpaces(const Popup& popup, const FormatSelector& format);
    bool wantsSign(const TextField& field) const;
    void setMasked(TextField& field, std::string_view text) const;
    std::int64_t storedRowCount() const;
    void saveAllOrNothing();
    void restoreEpoch(EpochSelector& selector, std::string_view key);
    void restoreFormat(FormatSelector& selector, std::string_view key, std::string_view standard);

    App& app_;
    bool restored_ = false; ///< whether all stored rows have come back
    LineSplitter lines_;
    std::optional<Precession> precession_;
    EpochPair precessionEpochs_; ///< what `precession_` was made for
    // Room for texts, kept from row to row
    std::array<char, 4 * RADecFormat::kMaxText> cells_{};
    std::string foldedRA_;
    std::string foldedDec_;
};

} // namespace skyvert
