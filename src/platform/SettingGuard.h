#pragma once

namespace skyvert {

/// Keeps a flag true during its lifetime. A composite control uses it to mute the event of its
/// owner while code changes the composite.
class SettingGuard {
public:
    explicit SettingGuard(bool& setting) : setting_(setting) { setting_ = true; }

    ~SettingGuard() { setting_ = false; }

    SettingGuard(const SettingGuard&) = delete;
    SettingGuard& operator=(const SettingGuard&) = delete;

private:
    bool& setting_;
};

} // namespace skyvert
