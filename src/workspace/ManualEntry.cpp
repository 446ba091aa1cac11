#include "controls/EntryMask.h"
#include "notation/PastedPosition.h"
#include "platform/Text.h"
#include "workspace/MainWindow.h"

namespace skyvert {

namespace {

/// Shows a parser's verdict on a field's text: nothing for no error, else red text and the error
/// as help tag.
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

/// Puts a pasted pair into both fields.
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

/// Puts a text that fits its mask into a field.
void MainWindow::setMasked(TextField& field, std::string_view text) const {
    const EntryMask mask(field.mask(), desktop_.locale.decimalPoint,
                         RADecFormat::closingMark(field.mask()));
    if (const auto entry = mask.replace({}, 0, 0, text))
        field.setText(entry->text);
}

void MainWindow::decManual_TextChange() {
    if (wantsSign(decManual)) {
        // Runs this handler again, for the sign.
        decManual.setText("+");
        return;
    }
    std::string_view error;
    inFormat.format().ImportDec(decManual.text(), error);
    showVerdict(decManual, error);
    CheckManualData();
}

/// Whether the first character typed stands where a signed notation under its mask has its sign.
bool MainWindow::wantsSign(const TextField& field) const {
    return DataEntryMask.value() && field.cueText().starts_with('+') && Len(field.text()) == 1 &&
           field.text() != "-" && field.text() != "+";
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
    armFormatChange();
}

void MainWindow::ClearListButton_Action() {
    list.DeleteAllRows();
    ClearListButton.setEnabled(false);
}

} // namespace skyvert
