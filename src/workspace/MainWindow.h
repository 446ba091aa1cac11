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

/// The main window: the handlers of its controls.
///
/// Typed, imported and restored positions all go through `ConvertCoordinates` into `list`. The
/// texts of a row never change: a new epoch or notation affects only rows added later.
class MainWindow : public MainWindowForm {
public:
    /// Creates all controls and starts `OpenTimer`. `app` must outlive the window.
    explicit MainWindow(App& app);

    /// Parses a position in the input notation, precesses it from the input epoch to the output
    /// epoch, and adds and selects its row. A text that does not parse still makes a row, with the
    /// fallback values of the parsers.
    void ConvertCoordinates(std::string_view ra, std::string_view dec);

    /// Imports files in order. A file that cannot be read is reported, and the import continues
    /// with the next; if the user stops it, the remaining files are not imported.
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
    void scheduleFormatChange();
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
    bool wantsSign() const;
    void setMasked(TextField& field, std::string_view text) const;

    // Save and restore
    void Event_Open();
    void Event_Close();
    void SaveContents();
    void LoadContents();
    void OpenTimer_Action();

    Preferences& prefs() const { return app_.prefs(); }

    std::int64_t storedRowCount() const;
    void saveOrDiscard();
    void keepStates();
    template <typename Kept>
    void keep(Kept& control, std::string_view key, const Variant& byDefault,
              void (MainWindow::*restored)() = nullptr);

    App& app_;
    bool restored_ = false; ///< all stored rows have been restored
    LineSplitter lines_;
    std::optional<Precession> precession_;
    EpochPair precessionEpochs_; ///< what `precession_` was made for
    // Buffers, reused for each row
    std::string foldedRA_;
    std::string foldedDec_;
};

} // namespace skyvert
