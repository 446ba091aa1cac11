#include "platform/Number.h"
#include "workspace/MainWindow.h"

#include <array>

namespace skyvert {

namespace {

constexpr Color kStripe{0xEFEFEF};

enum Side : std::size_t { kInput, kOutput };
enum class Coordinate { RightAscension, Declination };

char* write(const RADecFormat& format, const Pair& position, Coordinate coordinate, char* text) {
    return coordinate == Coordinate::RightAscension ? format.writeRA(position.Left, text)
                                                    : format.writeDec(position.Right, text);
}

/// A column of the list: its heading and the source of its cells.
struct Column {
    std::string_view heading;
    Side side; ///< selects the epoch of the heading, and the format and position of the cells
    Coordinate coordinate;
};

constexpr auto kColumns = std::to_array<Column>({
    {"Input RA", kInput, Coordinate::RightAscension},
    {"Input Dec", kInput, Coordinate::Declination},
    {"Output RA", kOutput, Coordinate::RightAscension},
    {"Output Dec", kOutput, Coordinate::Declination},
});

} // namespace

void MainWindow::ConvertCoordinates(std::string_view ra, std::string_view dec) {
    const std::array<const RADecFormat*, 2> formats{&inFormat.format(), &outFormat.format()};
    // Ignored: for a text that does not parse, the parser returns a fallback value.
    std::string_view error;
    const double raValue = formats[kInput]->ImportRA(ra, error);
    const double decValue = formats[kInput]->ImportDec(dec, error);
    const Pair position{raValue, decValue};
    const std::array<Pair, 2> positions{position, precession().convert(position)};

    std::array<char, kColumns.size() * RADecFormat::kMaxText> text;
    std::array<std::string_view, kColumns.size()> cells;
    char* begin = text.data();
    for (std::size_t i = 0; i < kColumns.size(); ++i) {
        const auto& [heading, side, coordinate] = kColumns[i];
        char* const end = write(*formats[side], positions[side], coordinate, begin);
        cells[i] = {begin, end};
        begin = end;
    }
    list.AddRow(cells);
    list.setListIndex(list.LastIndex());
    ClearListButton.setEnabled(true);
}

/// The precession between the current epochs. Recomputed only if one of them has changed since the
/// last row.
const Precession& MainWindow::precession() {
    const EpochPair epochs{fromEpoch.epochJulian(), toEpoch.epochJulian()};
    if (!precession_ || epochs != precessionEpochs_) {
        precession_.emplace(epochs.fromJulian, epochs.toJulian);
        precessionEpochs_ = epochs;
    }
    return *precession_;
}

void MainWindow::showColumns() {
    std::vector<std::string> headings;
    headings.reserve(kColumns.size());
    for (const Column& column : kColumns)
        headings.emplace_back(column.heading);
    list.setColumns(std::move(headings));
}

/// Updates the years in the headings, and enables `ClearListButton` if the list has rows.
void MainWindow::EpochChange() {
    const std::array<double, 2> years{fromEpoch.epochYear(), toEpoch.epochYear()};
    for (std::size_t i = 0; i < kColumns.size(); ++i) {
        const std::string year = Format(years[kColumns[i].side], "0.0", desktop_.locale);
        list.setHeading(static_cast<std::int64_t>(i),
                        std::string(kColumns[i].heading) + " (" + year + ")");
    }
    ClearListButton.setEnabled(list.RowCount() > 0);
}

void MainWindow::fromEpoch_ValueChanged() {
    EpochChange();
}

void MainWindow::toEpoch_ValueChanged() {
    EpochChange();
}

void MainWindow::inFormat_FormatChanged() {
    scheduleFormatChange();
}

/// Starts `FormatChangeTimer`, which updates masks and hints once for several changes.
void MainWindow::scheduleFormatChange() {
    FormatChangeTimer.setMode(Timer::Mode::Single);
}

void MainWindow::FormatChangeTimer_Action() {
    const RADecFormat& format = inFormat.format();
    const bool masked = DataEntryMask.value();
    raManual.setMask(masked ? format.RAMask() : "");
    decManual.setMask(masked ? format.DecMask() : "");
    raManual.setCueText(format.raFormat());
    decManual.setCueText(format.decFormat());
}

bool MainWindow::list_CellBackgroundPaint(Graphics& graphics, std::int64_t row,
                                          std::int64_t /*column*/) const {
    if (!list.Selected(row) && row % 2 == 0) {
        graphics.setForeColor(kStripe);
        graphics.FillRect(0, 0, graphics.Width(), graphics.Height());
    }
    return false;
}

} // namespace skyvert
