#include "platform/Number.h"
#include "settings/Preferences.h"
#include "workspace/MainWindow.h"

#include <algorithm>
#include <array>
#include <limits>
#include <stdexcept>

namespace skyvert {

namespace {

constexpr std::string_view kRowCountKey = "nContents";
constexpr std::string_view kRightAscensionKey = "Contents.RA.";
constexpr std::string_view kDeclinationKey = "Contents.Dec.";

/// The most by which the stored number of rows may exceed the number of settings entries. Each row
/// has two entries; missing ones read as 0.0.
constexpr std::int64_t kMostMissingRows = 1000;

/// The key of one stored cell: a prefix and the row's number. Reuses its memory for each row.
class RowKey {
public:
    explicit RowKey(std::string_view prefix) : text_(prefix), prefixLength_(prefix.size()) {}

    std::string_view of(std::int64_t row) {
        text_.resize(prefixLength_);
        text_ += std::to_string(row);
        return text_;
    }

private:
    std::string text_;
    std::size_t prefixLength_;
};

/// One value of the window's geometry: its key, getter and setter.
struct GeometryKey {
    std::string_view key;
    int (Window::*get)() const;
    void (Window::*set)(int);
};

constexpr std::array<GeometryKey, 3> kGeometryKeys{{
    {"MWin.Left", &Window::left, &Window::setLeft},
    {"MWin.Top", &Window::top, &Window::setTop},
    {"MWin.Height", &Window::height, &Window::setHeight},
}};

Variant stateOf(const EpochSelector& selector) {
    return selector.serialised();
}

Variant stateOf(const FormatSelector& selector) {
    return selector.format().AsString();
}

Variant stateOf(const Popup& popup) {
    return popup.value();
}

Variant stateOf(const CheckBox& box) {
    return box.value();
}

/// An invalid stored epoch counts as the empty text, which selects the default.
void restoreState(EpochSelector& selector, const Variant& state) {
    try {
        selector.setSerialised(state.stringValue());
    } catch (const std::invalid_argument&) {
        selector.setSerialised("");
    }
}

void restoreState(FormatSelector& selector, const Variant& state) {
    selector.setFormat(state.stringValue());
}

void restoreState(Popup& popup, const Variant& state) {
    popup.setValue(state.stringValue());
}

void restoreState(CheckBox& box, const Variant& state) {
    box.setValue(state.booleanValue());
}

/// The number at the start of a text, truncated and clamped to the range of `int`.
int toInt(std::string_view text) {
    constexpr std::int64_t kLowest = std::numeric_limits<int>::min();
    constexpr std::int64_t kHighest = std::numeric_limits<int>::max();
    return static_cast<int>(std::clamp(truncated(Val(text)), kLowest, kHighest));
}

} // namespace

void MainWindow::Event_Open() {
    for (const auto& [key, get, set] : kGeometryKeys)
        (this->*set)(toInt(prefs().Value(key, std::to_string((this->*get)())).stringValue()));
}

void MainWindow::Event_Close() {
    FormatChangeTimer.setMode(Timer::Mode::Off);
    OpenTimer.setMode(Timer::Mode::Off);
    for (const auto& [key, get, set] : kGeometryKeys)
        prefs().setValue(key, std::to_string((this->*get)()));
    // If not all stored rows were restored, they stay stored unchanged.
    if (restored_)
        saveOrDiscard();
    app_.Quit(0);
}

/// Discards all changes if saving fails (out of memory): a partial list must not replace the old.
void MainWindow::saveOrDiscard() {
    try {
        SaveContents();
    } catch (...) {
        prefs().Discard();
        app_.Quit(0);
        throw;
    }
}

/// Stores the number of rows and their input cells in the settings.
void MainWindow::SaveContents() {
    prefs().setValue(kRowCountKey, list.RowCount());
    RowKey raKey(kRightAscensionKey);
    RowKey decKey(kDeclinationKey);
    RowWork work(desktop_.progress, "Saving", StoppedBy::Nobody);
    for (std::int64_t row = 0; row <= list.LastIndex(); ++row) {
        prefs().setValue(raKey.of(row), list.Cell(row, 0));
        prefs().setValue(decKey.of(row), list.Cell(row, 1));
        work.rowDone([&] { return partOf(row, list.RowCount()); });
    }
}

/// The number of rows to restore: the stored number, or, if that is implausibly large, the number
/// of rows up to the last one stored.
std::int64_t MainWindow::storedRowCount() const {
    const std::int64_t entries = prefs().Count();
    std::int64_t count = prefs().Value(kRowCountKey, std::int64_t{0}).integerValue();
    if (count <= entries + kMostMissingRows)
        return count;
    RowKey raKey(kRightAscensionKey);
    RowKey decKey(kDeclinationKey);
    const auto isStored = [&](std::int64_t row) {
        return !prefs().Value(raKey.of(row), {}).isNil() ||
               !prefs().Value(decKey.of(row), {}).isNil();
    };
    for (count = entries; count > 0 && !isStored(count - 1);)
        --count;
    return count;
}

void MainWindow::OpenTimer_Action() {
    LoadContents();
}

/// Rebuilds the list: converts each stored row with the current epochs and notations.
void MainWindow::LoadContents() {
    list.DeleteAllRows();
    const std::int64_t count = storedRowCount();
    RowKey raKey(kRightAscensionKey);
    RowKey decKey(kDeclinationKey);
    RowWork work(desktop_.progress, "Restoring", StoppedBy::ProgramEnd);
    bool mayContinue = true;
    for (std::int64_t row = 0; mayContinue && row < count; ++row) {
        // Lookups are fastest in the order in which the values were stored.
        const std::string ra = prefs().Value(raKey.of(row), 0.0).stringValue();
        const std::string dec = prefs().Value(decKey.of(row), 0.0).stringValue();
        ConvertCoordinates(ra, dec);
        mayContinue = work.rowDone([&] { return partOf(row, count); });
    }
    restored_ = mayContinue;
    EpochChange();
}

/// Connects the controls whose state is kept between runs: each is restored when it opens and
/// stored when it closes.
void MainWindow::keepStates() {
    keep(fromEpoch, "fromEpochA", "", &MainWindow::EpochChange);
    keep(toEpoch, "toEpochA", "", &MainWindow::EpochChange);
    keep(inFormat, "inFormat", "HH MM\t+DD MM\tY\t1\t1", &MainWindow::scheduleFormatChange);
    keep(outFormat, "outFormat", "HH MM SS\t+DD MM SS\tY\t1\t0");
    keep(fileFormat, fileFormat.name(), "Tab-separated");
    keep(ListFormat, ListFormat.name(), "Tab-separated");
    keep(DataEntryMask, DataEntryMask.name(), true);
}

/// `restored` runs after the state has been restored.
template <typename Kept>
void MainWindow::keep(Kept& control, std::string_view key, const Variant& byDefault,
                      void (MainWindow::*restored)()) {
    // NOLINTNEXTLINE(bugprone-exception-escape): moving a Variant does not throw
    control.Open = [=, this, &control] {
        restoreState(control, prefs().Value(key, byDefault));
        if (restored != nullptr)
            (this->*restored)();
    };
    control.Close = [=, this, &control] { prefs().setValue(key, stateOf(control)); };
}

} // namespace skyvert
