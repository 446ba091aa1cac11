#pragma once

namespace skyvert {

/// Keeps a flag true during its lifetime, so that a control or a view does not report changes that
/// code makes. Not for nested use.
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
