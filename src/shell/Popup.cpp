#include "shell/Popup.h"

#include "platform/Text.h"

namespace skyvert {

std::string_view Popup::value() const {
    return listIndex() < 0 ? std::string_view() : Text();
}

void Popup::setValue(std::string_view text) {
    std::int64_t row = 0;
    while (row < ListCount() && !equalsIgnoringCase(List(row), text))
        ++row;
    setListIndex(row < ListCount() ? row : -1);
}

} // namespace skyvert
