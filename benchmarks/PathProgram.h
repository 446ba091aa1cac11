#pragma once

#include "workspace/MainWindow.h"

#include <algorithm>
#include <chrono>
#include <fstream>
#include <iostream>
#include <string>

// Shared by the benchmarks of whole paths: dialogs that answer at once, and functions that measure
// time and memory.
namespace skyvert {

class FixedDialogs : public Dialogs {
public:
    std::optional<std::filesystem::path> GetOpenFolderItem(const FileType& /*filter*/) override {
        return in;
    }

    std::optional<std::filesystem::path>
    GetSaveFolderItem(const FileType& /*filter*/, std::string_view /*defaultName*/) override {
        return out;
    }

    void StartIn(const std::filesystem::path& /*folder*/) override {}

    void MsgBox(std::string_view text) override { std::cerr << text << '\n'; }

    void ErrorBox(std::string_view text) override { MsgBox(text); }

    std::filesystem::path in;
    std::filesystem::path out;
};

class NoProgress : public Progress {
public:
    void begin(std::string_view /*what*/, StoppedBy /*stoppedBy*/) override {}

    bool report(std::int64_t /*rows*/, double /*fraction*/) override { return true; }

    void end() override {}

    bool isWorking() const override { return false; }
};

/// A format from its text form with ";" in place of tabs.
inline RADecFormat formatOf(std::string text, const Locale& locale) {
    std::replace(text.begin(), text.end(), ';', '\t');
    return {text, locale};
}

/// 1 January 1950 to 1 January 2000, in one format on both sides, with files of a dialect.
inline void choose(MainWindow& window, const Locale& locale, const std::string& dialect,
                   const std::string& format) {
    window.fromEpoch.epochPopup.setValue("B1950.0");
    window.toEpoch.epochPopup.setValue("J2000.0");
    window.inFormat.setFormat(formatOf(format, locale));
    window.outFormat.setFormat(formatOf(format, locale));
    window.fileFormat.setValue(dialect);
    window.ListFormat.setValue(dialect);
}

inline double nanoseconds(const std::function<void()>& path) {
    const auto begin = std::chrono::steady_clock::now();
    path();
    return std::chrono::duration<double, std::nano>(std::chrono::steady_clock::now() - begin)
        .count();
}

/// Memory of the process in MB: "VmRSS:", what it holds now, or "VmHWM:", the most it has held. 0
/// if the system does not report it.
inline double megabytes(const std::string& name) {
    std::ifstream status("/proc/self/status");
    double kibibytes = 0;
    for (std::string word; status >> word;) {
        if (word == name)
            status >> kibibytes;
    }
    return kibibytes * 1024 / 1e6;
}

} // namespace skyvert
