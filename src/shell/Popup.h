#pragma once

#include "controls/Controls.h"

namespace skyvert {

/// A popup menu whose selection is read and set as the row's text.
class Popup : public PopupMenu {
public:
    using PopupMenu::PopupMenu;

    /// The text of the selected row; empty while no row is selected.
    std::string_view value() const;

    /// Selects the first row with this text, ignoring case; clears the selection if there is none.
    void setValue(std::string_view text);
};

} // namespace skyvert
