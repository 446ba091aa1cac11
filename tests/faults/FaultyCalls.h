#pragma once

/// A fault in the file calls of this process. A failing write has written half, with EINTR nothing.
struct Fault {
    int call;   ///< which one, counted from 1 after `armFault`
    int error;  ///< the `errno` that it fails with, `kDeath` or `kShortWrite`
    bool lasts; ///< whether all later calls fail that want room on the disk, and no others
};

constexpr int kDeath = -1, kShortWrite = -2;

void armFault(const Fault& fault);

/// Whether the fault has come.
bool faultOccurred();
