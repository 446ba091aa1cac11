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
    FormatSelector(const ControlLayout& layout, const Locale& locale);

    /// The caption of the frame.
    const std::string& title() const { return gbox.caption(); }

    void setTitle(std::string_view title) { gbox.setCaption(title); }

    /// A record of what the controls say, valid until one of them changes: whoever keeps it takes a
    /// copy. A notation or a number that no row shows reads as the empty text or as 0.
    const RADecFormat& format() const;

    /// Moves the controls to a record; raises no `FormatChanged`.
    void setFormat(const RADecFormat& format);

    /// Whether one of the selected notations holds a blank.
    bool ContainsSpaces() const;

    /// Refreshes the two example labels.
    void DoExample();

    /// Fills the popups, lets the owner assign `format`, then shows the examples.
    void open() override;

    /// Runs for each change of a choice, but for those that `setFormat` makes, before the examples
    /// follow.
    std::function<void(FormatSelector&, const RADecFormat&)> FormatChanged;

    GroupBox gbox;
    Label raLabel;
    Popup RAFormat;
    Label decLabel;
    Popup DecFormat;
    Label exampleRA;
    Label radecimalLabel;
    Popup raDecimals;
    CheckBox localised;
    Label decdecimalLabel;
    Popup decDecimals;
    Label decLabel1;
    Label exampleDec;
    Label decLabel11;
    Label decLabel111;

private:
    void RAFormat_Open();
    void DecFormat_Open();
    void localised_Open();
    void controlChanged();
    RADecFormat readControls() const;

    const Locale& locale_;
    bool setting_ = false;
    /// What `readControls` gave, until a control changes: a long import asks for it at every row.
    /// Whether `localised` is enabled is settled once, at the opening.
    mutable std::optional<RADecFormat> read_;
};

} // namespace skyvert
