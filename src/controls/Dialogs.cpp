#include "controls/Dialogs.h"

#include <exception>
#include <new>

namespace skyvert {

namespace {

/// Tells what the failure has left of the memory: the text needs none of it, the window may.
void tellOfMemory(Dialogs& dialogs) {
    try {
        dialogs.MsgBox("There is not enough memory to finish this.");
    } catch (const std::bad_alloc&) {
        // Nothing is left to tell it with, and the program goes on.
    }
}

} // namespace

void dispatch(Dialogs& dialogs, const std::function<void()>& handler) {
    try {
        handler();
    } catch (const std::bad_alloc&) {
        tellOfMemory(dialogs);
    } catch (const std::exception& error) {
        dialogs.ErrorBox(error.what());
    }
}

} // namespace skyvert
