#pragma once

#include "platform/Desktop.h"

#include <algorithm>
#include <deque>
#include <filesystem>
#include <map>
#include <random>
#include <string>
#include <utility>
#include <vector>

namespace skyvert {

/// A clock that stands still until it is set.
class FixedClock : public Clock {
public:
    Date now() const override { return moment; }

    Date moment{2026, 11, 16, 12, 30, 0};
};

/// An event loop whose time passes only in `advance`.
class VirtualScheduler : public Scheduler {
public:
    std::unique_ptr<Alarm> after(std::chrono::milliseconds delay,
                                 std::function<void()> due) override {
        const auto entry = due_.emplace(now_ + delay, std::move(due));
        return std::make_unique<VirtualAlarm>(*this, entry);
    }

    /// Lets time pass and runs what falls due, in the order in which it does.
    void advance(std::chrono::milliseconds time) {
        const auto end = now_ + time;
        while (!due_.empty() && due_.begin()->first <= end) {
            now_ = due_.begin()->first;
            const auto due = due_.begin()->second;
            due();
        }
        now_ = end;
    }

private:
    using Queue = std::multimap<std::chrono::milliseconds, std::function<void()>>;

    struct VirtualAlarm : Alarm {
        VirtualAlarm(VirtualScheduler& scheduler, Queue::iterator entry)
            : scheduler(scheduler), entry(entry) {}

        ~VirtualAlarm() override { scheduler.due_.erase(entry); }

        VirtualScheduler& scheduler;
        Queue::iterator entry;
    };

    std::chrono::milliseconds now_{0};
    Queue due_;
};

/// A user who answers file dialogs with `file` and lets every message be.
class ScriptedDialogs : public Dialogs {
public:
    std::optional<std::filesystem::path> GetOpenFolderItem(const FileType& filter) override {
        asked.emplace_back("open " + std::string(filter.Name));
        return file;
    }

    std::optional<std::filesystem::path> GetSaveFolderItem(const FileType& filter,
                                                           std::string_view defaultName) override {
        asked.emplace_back("save " + std::string(filter.Name) + " " + std::string(defaultName));
        return file;
    }

    void MsgBox(std::string_view text) override { messages.emplace_back(text); }

    std::optional<std::filesystem::path> file;
    std::vector<std::string> asked;
    std::vector<std::string> messages;
};

/// A machine made for a test: a stopped clock, a loop that is driven by hand, a scripted user.
struct TestDesktop {
    explicit TestDesktop(Locale locale = {}) : locale(std::move(locale)) {}

    Locale locale;
    FixedClock clock;
    VirtualScheduler scheduler;
    ScriptedDialogs dialogs;
    Desktop desktop{locale, clock, scheduler, dialogs};
};

/// A folder of its own that goes with the object.
class TemporaryFolder {
public:
    TemporaryFolder() {
        std::random_device random;
        path_ = std::filesystem::temp_directory_path() / ("skyvert-" + std::to_string(random()));
        std::filesystem::create_directories(path_);
    }

    ~TemporaryFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }

    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    std::filesystem::path operator/(std::string_view name) const { return path_ / name; }

    const std::filesystem::path& path() const { return path_; }

private:
    std::filesystem::path path_;
};

} // namespace skyvert
