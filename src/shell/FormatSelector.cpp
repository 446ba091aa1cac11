#include "shell/FormatSelector.h"

#include "platform/Number.h"
#include "platform/SettingGuard.h"
#include "platform/Text.h"

#include <array>

namespace skyvert {

namespace {

constexpr double kExampleHours = 15.7851;
constexpr double kExampleDegrees = 22.6751;
constexpr int kMostDecimals = 8;

// clang-format off
constexpr std::array<ControlLayout, 15> kLayout{{
    {"gbox",            "",       0,   0, 306, 159, kLockAll,      0, "Input Format"},
    {"raLabel",         "gbox",   8,  36,  31,  20, kLockTopLeft,  0, "RA:"},
    {"RAFormat",        "gbox",  51,  38, 108,  20, kLockTopLeft,  1, ""},
    {"decLabel",        "gbox",   8,  68,  31,  20, kLockTopLeft,  2, "Dec:"},
    {"DecFormat",       "gbox",  51,  69, 108,  20, kLockTopLeft,  3, ""},
    {"exampleRA",       "gbox", 110, 118, 188,  20, kLockAcross,   5, ""},
    {"radecimalLabel",  "gbox", 171,  36,  61,  20, kLockTopLeft,  6, "Decimals:"},
    {"raDecimals",      "gbox", 244,  38,  44,  20, kLockTopLeft,  7, ""},
    {"localised",       "gbox",  51,  96, 235,  20, kLockTopLeft,  8, "Localised decimal point"},
    {"decdecimalLabel", "gbox", 171,  67,  61,  20, kLockTopLeft,  9, "Decimals:"},
    {"decDecimals",     "gbox", 244,  69,  44,  20, kLockTopLeft, 10, ""},
    {"decLabel1",       "gbox",   8, 118,  58,  20, kLockTopLeft, 11, "Example:"},
    {"exampleDec",      "gbox", 110, 134, 188,  20, kLockAcross,  12, ""},
    {"decLabel11",      "gbox",  76, 118,  24,  20, kLockTopLeft, 13, "RA:"},
    {"decLabel111",     "gbox",  76, 134,  25,  20, kLockTopLeft, 14, "Dec:"},
}};

// clang-format on

void addDecimalRows(Popup& popup) {
    for (int decimals = 0; decimals <= kMostDecimals; ++decimals)
        popup.AddRow(std::to_string(decimals));
    popup.setListIndex(0);
}

/// Puts the rows of a catalogue in place of the popup's own and selects none of them.
void fill(Popup& popup, const std::vector<std::string>& catalogue) {
    popup.DeleteAllRows();
    for (const std::string& notation : catalogue)
        popup.AddRow(notation);
}

bool holdsSpace(std::string_view text) {
    return text.find(' ') != std::string_view::npos;
}

} // namespace

FormatSelector::FormatSelector(const ControlLayout& layout, const Locale& locale)
    : ContainerControl(layout), gbox(layoutOf(kLayout, "gbox")),
      raLabel(layoutOf(kLayout, "raLabel")), RAFormat(layoutOf(kLayout, "RAFormat")),
      decLabel(layoutOf(kLayout, "decLabel")), DecFormat(layoutOf(kLayout, "DecFormat")),
      exampleRA(layoutOf(kLayout, "exampleRA")),
      radecimalLabel(layoutOf(kLayout, "radecimalLabel")),
      raDecimals(layoutOf(kLayout, "raDecimals")), localised(layoutOf(kLayout, "localised")),
      decdecimalLabel(layoutOf(kLayout, "decdecimalLabel")),
      decDecimals(layoutOf(kLayout, "decDecimals")), decLabel1(layoutOf(kLayout, "decLabel1")),
      exampleDec(layoutOf(kLayout, "exampleDec")), decLabel11(layoutOf(kLayout, "decLabel11")),
      decLabel111(layoutOf(kLayout, "decLabel111")), locale_(locale) {
    setChildren({&gbox, &raLabel, &RAFormat, &decLabel, &DecFormat, &exampleRA, &radecimalLabel,
                 &raDecimals, &localised, &decdecimalLabel, &decDecimals, &decLabel1, &exampleDec,
                 &decLabel11, &decLabel111});
    setTitle(layout.text);
    addDecimalRows(raDecimals);
    addDecimalRows(decDecimals);
    RAFormat.Open = [this] { RAFormat_Open(); };
    DecFormat.Open = [this] { DecFormat_Open(); };
    localised.Open = [this] { localised_Open(); };
    for (Popup* popup : {&RAFormat, &DecFormat, &raDecimals, &decDecimals})
        popup->Change = [this](PopupMenu&) { controlChanged(); };
    localised.Action = [this](CheckBox&) { controlChanged(); };
}

const RADecFormat& FormatSelector::format() const {
    if (!read_)
        read_ = readControls();
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

/// What every change of a popup and of the check box runs, by the user or by code.
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
