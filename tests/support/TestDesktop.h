#pragma once

#include "controls/Desktop.h"

#include <cmath>
#include <filesystem>
#include <limits>
#include <map>
#include <random>
#include <string>
#include <utility>

namespace skyvert {

/// A stopped clock.
struct FixedClock : Clock {
    Date now() const override { return moment; }

    Date moment{2026, 11, 16, 12, 30, 0};
};

/// A scheduler whose time passes only in `advance`.
class VirtualScheduler : public Scheduler {
public:
    std::unique_ptr<Alarm> after(std::chrono::milliseconds delay,
                                 std::function<void()> due) override {
        return std::make_unique<VirtualAlarm>(queue_, queue_.emplace(now_ + delay, std::move(due)));
    }

    /// Lets time pass and runs each alarm that falls due, in the order of time.
    void advance(std::chrono::milliseconds time) {
        const auto end = now_ + time;
        while (!queue_.empty() && queue_.begin()->first <= end) {
            now_ = queue_.begin()->first;
            const auto due = queue_.begin()->second;
            due();
        }
        now_ = end;
    }

private:
    using Queue = std::multimap<std::chrono::milliseconds, std::function<void()>>;

    struct VirtualAlarm : Alarm {
        VirtualAlarm(Queue& queue, Queue::iterator entry) : queue(queue), entry(entry) {}

        ~VirtualAlarm() override { queue.erase(entry); }

        Queue& queue;
        Queue::iterator entry;
    };

    std::chrono::milliseconds now_{0};
    Queue queue_;
};

/// A user who answers each file dialog with `file`. Logs dialogs and messages, each with "|" after.
struct ScriptedDialogs : Dialogs {
    std::optional<std::filesystem::path> GetOpenFolderItem(const FileType& filter) override {
        asked.append("open ").append(filter.Name).append("|");
        return file;
    }

    std::optional<std::filesystem::path> GetSaveFolderItem(const FileType& filter,
                                                           std::string_view defaultName) override {
        asked.append("save ").append(filter.Name).append(" ").append(defaultName).append("|");
        return file;
    }

    void StartIn(const std::filesystem::path& folder) override { start = folder; }

    void MsgBox(std::string_view text) override { messages.append(text).append("|"); }

    void ErrorBox(std::string_view text) override { MsgBox(text); }

    std::optional<std::filesystem::path> file;
    std::filesystem::path start;
    std::string asked;
    std::string messages;
};

/// Logs each report, with "|" after it, and stops the work at a number of rows.
struct LoggedProgress : Progress {
    void begin(std::string_view what, StoppedBy by) override {
        log.append(what).append("|");
        stoppedBy = by;
        working = true;
    }

    bool report(std::int64_t rows, double fraction) override {
        log += std::to_string(rows) + " " + std::to_string(std::lround(100 * fraction)) + "%|";
        if (lacksMemory)
            throw std::bad_alloc();
        return stoppedBy == StoppedBy::Nobody || rows < stopAt;
    }

    void end() override {
        log += "end|";
        working = false;
    }

    bool isWorking() const override { return working; }

    std::string log;
    std::int64_t stopAt = std::numeric_limits<std::int64_t>::max();
    StoppedBy stoppedBy{};
    bool working = false;
    bool lacksMemory = false;
};

/// A desktop for a test: a stopped clock, virtual time, a scripted user.
struct TestDesktop {
    explicit TestDesktop(Locale locale = {}) : locale(std::move(locale)) {}

    Locale locale;
    FixedClock clock;
    VirtualScheduler scheduler;
    ScriptedDialogs dialogs;
    LoggedProgress progress;
    Desktop desktop{locale, clock, scheduler, dialogs, progress};
};

/// A new folder that is removed with the object.
class TemporaryFolder {
public:
    TemporaryFolder() { std::filesystem::create_directories(path_); }

    ~TemporaryFolder() { std::filesystem::remove_all(path_); }

    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    std::filesystem::path operator/(std::string_view name) const { return path_ / name; }

    const std::filesystem::path& path() const { return path_; }

private:
    std::filesystem::path path_ = std::filesystem::temp_directory_path() /
                                  ("skyvert-" + std::to_string(std::random_device()()));
};

} // namespace skyvert
