#include "controls/EntryMask.h"
#include "notation/PastedPosition.h"
#include "platform/Text.h"
#include "workspace/MainWindow.h"

namespace skyvert {

namespace {

/// Shows a parser's error as red text and a help tag; without an error, black text and no help tag.
void showVerdict(TextField& field, std::string_view error) {
    field.setTextColor(error.empty() ? kBlack : kRed);
    field.setHelpTag(error);
}

} // namespace

void MainWindow::raManual_Open() {
    raManual.setText("");
}

void MainWindow::decManual_Open() {
    decManual.setText("");
}

void MainWindow::raManual_TextChange() {
    std::string_view error;
    inFormat.format().ImportRA(raManual.text(), error);
    showVerdict(raManual, error);
    CheckManualData();
}

/// Fills both fields from a pasted pair. Returns false for any other text, or without masks.
bool MainWindow::raManual_Paste(TextField& /*sender*/, std::string_view text) {
    if (!DataEntryMask.value())
        return false;
    const auto position = splitPosition(text, raManual.mask(), decManual.mask());
    if (!position)
        return false;
    setMasked(raManual, position->ra);
    setMasked(decManual, position->dec);
    return true;
}

/// Sets the text of a field if it fits the field's mask.
void MainWindow::setMasked(TextField& field, std::string_view text) const {
    const EntryMask mask(field.mask(), desktop_.locale.decimalPoint,
                         RADecFormat::closingMark(field.mask()));
    if (const auto entry = mask.replace({}, 0, 0, text))
        field.setText(entry->text);
}

void MainWindow::decManual_TextChange() {
    if (wantsSign()) {
        // Replaces the character; the assignment runs this handler again.
        decManual.setText("+");
        return;
    }
    std::string_view error;
    inFormat.format().ImportDec(decManual.text(), error);
    showVerdict(decManual, error);
    CheckManualData();
}

/// Whether the declination is a single character other than a sign, under the mask of a signed
/// notation.
bool MainWindow::wantsSign() const {
    return DataEntryMask.value() && decManual.cueText().starts_with('+') &&
           Len(decManual.text()) == 1 && decManual.text() != "-" && decManual.text() != "+";
}

/// Enables `ManualEnterBtn` when both fields parse.
void MainWindow::CheckManualData() {
    const RADecFormat& format = inFormat.format();
    std::string_view errorRA;
    std::string_view errorDec;
    format.ImportRA(raManual.text(), errorRA);
    format.ImportDec(decManual.text(), errorDec);
    ManualEnterBtn.setEnabled(errorRA.empty() && errorDec.empty());
}

void MainWindow::ManualEnterBtn_Action() {
    ConvertCoordinates(raManual.text(), decManual.text());
    raManual.setText("");
    decManual.setText("");
    raManual.SetFocus();
}

void MainWindow::DataEntryMask_Action() {
    scheduleFormatChange();
}

void MainWindow::ClearListButton_Action() {
    list.DeleteAllRows();
    ClearListButton.setEnabled(false);
}

} // namespace skyvert
