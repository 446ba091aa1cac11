#pragma once

namespace skyvert {

/// Holds a flag true while it lives: keeps a composite from telling its owner of changes that code
/// makes.
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
