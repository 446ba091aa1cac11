#include "shell/FormatSelector.h"

#include "platform/Number.h"
#include "platform/SettingGuard.h"
#include "platform/Text.h"

namespace skyvert {

namespace {

constexpr double kExampleHours = 15.7851;
constexpr double kExampleDegrees = 22.6751;
constexpr int kMostDecimals = 8;

void addDecimalRows(Popup& popup) {
    for (int decimals = 0; decimals <= kMostDecimals; ++decimals)
        popup.AddRow(std::to_string(decimals));
    popup.setListIndex(0);
}

/// Replaces the rows of a popup with a catalogue and selects none.
void fill(Popup& popup, const std::vector<std::string>& catalogue) {
    popup.DeleteAllRows();
    for (const std::string& notation : catalogue)
        popup.AddRow(notation);
}

bool holdsSpace(std::string_view text) {
    return text.find(' ') != std::string_view::npos;
}

} // namespace

FormatSelector::FormatSelector(const Place& place, const Locale& locale)
    : ContainerControl(place), locale_(locale) {
    setTitle(place.layout.text);
    addDecimalRows(raDecimals);
    addDecimalRows(decDecimals);
    wire(RAFormat.Open, &FormatSelector::RAFormat_Open);
    wire(DecFormat.Open, &FormatSelector::DecFormat_Open);
    wire(localised.Open, &FormatSelector::localised_Open);
    for (Popup* popup : {&RAFormat, &DecFormat, &raDecimals, &decDecimals})
        wire(popup->Change, &FormatSelector::controlChanged);
    wire(localised.Action, &FormatSelector::controlChanged);
}

const RADecFormat& FormatSelector::format() const {
    if (!read_)
        read_.emplace(readControls());
    return *read_;
}

RADecFormat FormatSelector::readControls() const {
    RADecFormat shown(locale_);
    shown.setRaFormat(RAFormat.value());
    shown.setDecFormat(DecFormat.value());
    if (localised.enabled())
        shown.setLocalised(localised.value());
    shown.setRADecimals(truncated(Val(raDecimals.value())));
    shown.setDecDecimals(truncated(Val(decDecimals.value())));
    return shown;
}

void FormatSelector::setFormat(const RADecFormat& format) {
    const SettingGuard guard(setting_);
    RAFormat.setValue(format.raFormat());
    DecFormat.setValue(format.decFormat());
    if (localised.enabled())
        localised.setValue(format.localised());
    raDecimals.setValue(std::to_string(format.RADecimals()));
    decDecimals.setValue(std::to_string(format.DecDecimals()));
}

bool FormatSelector::ContainsSpaces() const {
    return holdsSpace(RAFormat.value()) || holdsSpace(DecFormat.value());
}

void FormatSelector::DoExample() {
    const RADecFormat& shown = format();
    exampleRA.setText(shown.ExportRA(kExampleHours));
    exampleDec.setText(shown.ExportDec(kExampleDegrees));
}

/// Runs after each change of a popup or the check box, by the user or by code.
void FormatSelector::controlChanged() {
    read_.reset();
    if (!setting_ && FormatChanged)
        FormatChanged(*this, RADecFormat(format()));
    DoExample();
}

void FormatSelector::RAFormat_Open() {
    fill(RAFormat, RADecFormat::SupportedRAFormats());
}

void FormatSelector::DecFormat_Open() {
    fill(DecFormat, RADecFormat::SupportedDecFormats());
}

void FormatSelector::localised_Open() {
    const std::string sample = Format(1.5, "0.0", locale_);
    if (sample == "1.5") {
        localised.setEnabled(false);
        localised.setState(CheckBox::State::Mixed);
        localised.setHelpTag("Not applicable for this locality (your decimal point is a period).");
        return;
    }
    localised.setCaption(localised.caption() + " (" + std::string(Mid(sample, 2, 1)) + ")");
}

void FormatSelector::open() {
    ContainerControl::open();
    DoExample();
}

} // namespace skyvert
