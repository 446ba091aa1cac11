#pragma once

#include "epochs/Precession.h"
#include "platform/TextOutputStream.h"
#include "shell/App.h"
#include "shell/MainWindowForm.h"
#include "workspace/DelimitedText.h"

#include <filesystem>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace skyvert {

/// The one window: what happens when its controls are used.
///
/// All positions go through `ConvertCoordinates` into `list`, typed ones, imported ones and those
/// that come back at the start. A row is four texts that never change: a change of an epoch or of
/// a notation reaches rows added later, and no others.
class MainWindow : public MainWindowForm {
public:
    /// Creates all controls; `OpenTimer` starts to run. `app` must outlive the window.
    explicit MainWindow(App& app);

    /// Parses a position in the input notation, precesses it from the input epoch to the output
    /// epoch, and adds and selects its row. Text that does not parse still makes a row, of the
    /// numbers that the parsers fall back on.
    void ConvertCoordinates(std::string_view ra, std::string_view dec);

    /// Imports files one after another, as if each had been chosen in the dialog of
    /// `FileImportBtn`. A file that cannot be read is reported and keeps none of the others out;
    /// one that the user stops does.
    void FilesDropped(std::span<const std::filesystem::path> files);

private:
    struct EpochPair {
        double fromJulian = 0.0;
        double toJulian = 0.0;

        friend bool operator==(const EpochPair&, const EpochPair&) = default;
    };

    void wireHandlers();

    // Conversion
    void showColumns();
    void EpochChange();
    void fromEpoch_ValueChanged();
    void toEpoch_ValueChanged();
    void inFormat_FormatChanged();
    void armFormatChange();
    void FormatChangeTimer_Action();
    bool list_CellBackgroundPaint(Graphics& graphics, std::int64_t row, std::int64_t column) const;
    const Precession& precession();

    // Import and export
    void FileImportBtn_Action();
    void ExportListBtn_Action();
    std::string importFiles(std::span<const std::filesystem::path> files);
    bool importFile(const std::filesystem::path& file, RowWork& work,
                    const std::function<double(double)>& ofAll);
    void importLine(std::string_view line, const Dialect& dialect);
    bool exportList(const Dialect& dialect, TextOutputStream& stream);
    bool refusesSpaces(const Popup& popup, const FormatSelector& format);

    // Manual entry
    void raManual_Open();
    void decManual_Open();
    void raManual_TextChange();
    void decManual_TextChange();
    bool raManual_Paste(TextField& sender, std::string_view text);
    void CheckManualData();
    void ManualEnterBtn_Action();
    void DataEntryMask_Action();
    void ClearListButton_Action();
    bool wantsSign(const TextField& field) const;
    void setMasked(TextField& field, std::string_view text) const;

    // Save and restore
    void Event_Open();
    void Event_Close();
    void SaveContents();
    void LoadContents();
    void OpenTimer_Action();

    Preferences& prefs() const { return app_.prefs(); }

    std::int64_t storedRowCount() const;
    void saveAllOrNothing();
    void keepStates();
    template <typename Kept>
    void keep(Kept& control, std::string_view key, const Variant& byDefault,
              void (MainWindow::*restored)() = nullptr);

    App& app_;
    bool restored_ = false; ///< whether all stored rows have come back
    LineSplitter lines_;
    std::optional<Precession> precession_;
    EpochPair precessionEpochs_; ///< what `precession_` was made for
    // Room for texts, kept from row to row
    std::string foldedRA_;
    std::string foldedDec_;
};

} // namespace skyvert
