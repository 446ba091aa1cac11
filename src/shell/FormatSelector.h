#pragma once

#include "notation/RADecFormat.h"
#include "platform/Locale.h"
#include "shell/Popup.h"

#include <functional>
#include <optional>

namespace skyvert {

/// The composite control that edits one `RADecFormat`: two notations, the decimals of each, a
/// choice of locale for the decimal point, and a live example of the result.
class FormatSelector : public ContainerControl {
public:
    FormatSelector(const Place& place, const Locale& locale);
    FormatSelector(const Place&, const Locale&&) = delete;

    /// The caption of the frame.
    const std::string& title() const { return gbox.caption(); }

    void setTitle(std::string_view title) { gbox.setCaption(title); }

    /// The selected format, valid until a control changes; copy it to keep it longer. If no row is
    /// selected, a notation is the empty text and a number of decimals is 0.
    const RADecFormat& format() const;

    /// Sets the controls to a format. Does not raise `FormatChanged`.
    void setFormat(const RADecFormat& format);

    /// The same from a format's text form.
    void setFormat(std::string_view text) { setFormat(RADecFormat(text, locale_)); }

    /// Whether one of the selected notations holds a blank.
    bool ContainsSpaces() const;

    /// Refreshes the two example labels.
    void DoExample();

    /// Fills the popups, runs the owner's `Open`, which may set the format, then shows the
    /// examples.
    void open() override;

    /// Runs after each change of a control, except by `setFormat`, before the examples are updated.
    std::function<void(FormatSelector&, const RADecFormat&)> FormatChanged;

    // clang-format off
    GroupBox gbox           {child({"gbox",                    0,   0, 306, 159, "Input Format", kLockAll})};
    Label    raLabel        {child(gbox, {"raLabel",           8,  36,  31,  20, "RA:"})};
    Popup    RAFormat       {child(gbox, {"RAFormat",         51,  38, 108,  20})};
    Label    decLabel       {child(gbox, {"decLabel",          8,  68,  31,  20, "Dec:"})};
    Popup    DecFormat      {child(gbox, {"DecFormat",        51,  69, 108,  20})};
    Label    exampleRA      {child(gbox, {"exampleRA",       110, 118, 188,  20, "", kLockAcross})};
    Label    radecimalLabel {child(gbox, {"radecimalLabel",  171,  36,  61,  20, "Decimals:"})};
    Popup    raDecimals     {child(gbox, {"raDecimals",      244,  38,  44,  20})};
    CheckBox localised      {child(gbox, {"localised",        51,  96, 235,  20, "Localised decimal point"})};
    Label    decdecimalLabel{child(gbox, {"decdecimalLabel", 171,  67,  61,  20, "Decimals:"})};
    Popup    decDecimals    {child(gbox, {"decDecimals",     244,  69,  44,  20})};
    Label    decLabel1      {child(gbox, {"decLabel1",         8, 118,  58,  20, "Example:"})};
    Label    exampleDec     {child(gbox, {"exampleDec",      110, 134, 188,  20, "", kLockAcross})};
    Label    decLabel11     {child(gbox, {"decLabel11",       76, 118,  24,  20, "RA:"})};
    Label    decLabel111    {child(gbox, {"decLabel111",      76, 134,  25,  20, "Dec:"})};
    // clang-format on

private:
    void RAFormat_Open();
    void DecFormat_Open();
    void localised_Open();
    void controlChanged();
    RADecFormat readControls() const;

    const Locale& locale_;
    bool setting_ = false;
    /// The cached result of `readControls`, reset by each change of a control: an import reads it
    /// for every row. `localised` is enabled or disabled only in `open`, so that does not reset it.
    mutable std::optional<RADecFormat> read_;
};

} // namespace skyvert
