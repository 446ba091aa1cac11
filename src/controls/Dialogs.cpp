#include "controls/Dialogs.h"

#include <exception>
#include <new>

namespace skyvert {

namespace {

/// Reports that memory has run out. The text needs no memory, but the message box may.
void reportOutOfMemory(Dialogs& dialogs) {
    try {
        dialogs.MsgBox("There is not enough memory to finish this.");
    } catch (const std::bad_alloc&) {
        // There is no memory for the message box either. The program continues.
    }
}

} // namespace

void dispatch(Dialogs& dialogs, const std::function<void()>& handler) {
    try {
        handler();
    } catch (const std::bad_alloc&) {
        reportOutOfMemory(dialogs);
    } catch (const std::exception& error) {
        dialogs.ErrorBox(error.what());
    }
}

} // namespace skyvert
