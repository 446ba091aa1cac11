#pragma once

#include "settings/Variant.h"

#include <cstddef>
#include <filesystem>
#include <string>
#include <utility>
#include <vector>

namespace skyvert {

/// A list of values, numbered from 1.
class Collection final : public Object {
public:
    std::size_t Count() const { return items_.size(); }

    /// The item with this number, 1 to `Count()`. Throws `std::out_of_range` for any other.
    const Variant& Item(std::size_t index) const { return items_.at(index - 1); }

    void Add(Variant value) { items_.push_back(std::move(value)); }

private:
    std::vector<Variant> items_;
};

/// A block of bytes.
class MemoryBlock final : public Object {
public:
    explicit MemoryBlock(std::string bytes) : bytes_(std::move(bytes)) {}

    const std::string& bytes() const { return bytes_; }

private:
    std::string bytes_;
};

/// A reference to a file, which need not exist.
class FolderItem final : public Object {
public:
    explicit FolderItem(std::filesystem::path path) : path_(std::move(path)) {}

    const std::filesystem::path& path() const { return path_; }

private:
    std::filesystem::path path_;
};

} // namespace skyvert
