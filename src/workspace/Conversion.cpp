#include "platform/Number.h"
#include "workspace/MainWindow.h"

#include <array>

namespace skyvert {

namespace {

constexpr Color kStripe{0xEFEFEF};

} // namespace

void MainWindow::ConvertCoordinates(std::string_view ra, std::string_view dec) {
    const RADecFormat& input = inFormat.format();
    const RADecFormat& output = outFormat.format();
    // Never read: what does not parse goes on as the number that the parser fell back on.
    std::string_view error;
    const double raValue = input.ImportRA(ra, error);
    const double decValue = input.ImportDec(dec, error);
    const Pair result = precession().convert({raValue, decValue});

    char* const inputRA = cells_.data();
    char* const inputDec = input.writeRA(raValue, inputRA);
    char* const outputRA = input.writeDec(decValue, inputDec);
    char* const outputDec = output.writeRA(result.Left, outputRA);
    char* const end = output.writeDec(result.Right, outputDec);
    list.AddRow(std::array<std::string_view, 4>{
        {{inputRA, inputDec}, {inputDec, outputRA}, {outputRA, outputDec}, {outputDec, end}}});
    list.setListIndex(list.LastIndex());
    ClearListButton.setEnabled(true);
}

/// The precession between the two epochs as they stand now. Its angles are worked out again only
/// when an epoch is another than at the last row.
const Precession& MainWindow::precession() {
    const EpochPair epochs{fromEpoch.epochJulian(), toEpoch.epochJulian()};
    if (!precession_ || epochs != precessionEpochs_) {
        precession_.emplace(epochs.fromJulian, epochs.toJulian);
        precessionEpochs_ = epochs;
    }
    return *precession_;
}

void MainWindow::EpochChange() {
    const Locale& locale = app_.desktop().locale;
    const std::string from = " (" + Format(fromEpoch.epochYear(), "0.0", locale) + ")";
    const std::string to = " (" + Format(toEpoch.epochYear(), "0.0", locale) + ")";
    list.setHeading(0, "Input RA" + from);
    list.setHeading(1, "Input Dec" + from);
    list.setHeading(2, "Output RA" + to);
    list.setHeading(3, "Output Dec" + to);
    ClearListButton.setEnabled(list.RowCount() > 0);
}

void MainWindow::fromEpoch_ValueChanged(EpochSelector& /*sender*/, const Date& /*date*/) {
    EpochChange();
}

void MainWindow::toEpoch_ValueChanged(EpochSelector& /*sender*/, const Date& /*date*/) {
    EpochChange();
}

void MainWindow::inFormat_FormatChanged(FormatSelector& /*sender*/, const RADecFormat& /*format*/) {
    FormatChangeTimer.setMode(Timer::Mode::Single);
}

void MainWindow::FormatChangeTimer_Action(Timer& /*sender*/) {
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
