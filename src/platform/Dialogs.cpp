#include "platform/Dialogs.h"

#include <exception>

namespace skyvert {

void dispatch(Dialogs& dialogs, const std::function<void()>& handler) {
    try {
        handler();
    } catch (const std::exception& error) {
        dialogs.MsgBox(error.what());
    }
}

} // namespace skyvert
