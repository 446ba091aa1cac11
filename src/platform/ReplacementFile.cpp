#include "platform/ReplacementFile.h"

#include <cerrno>
#include <string>

namespace skyvert {

namespace fs = std::filesystem;

namespace {

constexpr int kWatchedNames = 10; ///< more than one folder ever has in use at once

fs::path temporaryName(const fs::path& folder, int number) {
    return folder / (".skyvert-" + std::to_string(number) + ".tmp");
}

void removeIfAbandoned(const fs::path& path) {
    File file(path, File::Use::WriteNoLink);
    // Its owner may have renamed it between the opening and the lock.
    if (!file.regularSize() || !file.lock() || !file.isAt(path))
        return;
#ifdef _WIN32
    file.close(); // Windows cannot remove an open file
#endif
    std::error_code ignored;
    fs::remove(path, ignored);
}

/// Creates and locks a file under the first free name, which is returned in `path`.
File createTemporary(const fs::path& folder, File::Use use, fs::path& path) {
    for (int number = 0;; ++number) {
        path = temporaryName(folder, number);
        File file(path, use);
        if (!file.isOpen() && errno != EEXIST)
            return file;
        // It may have been removed as abandoned before it was locked. Without locks on the file
        // system nothing is removed.
        if (file.isOpen() && (file.lock() || errno != EWOULDBLOCK) && file.isAt(path))
            return file;
    }
}

} // namespace

ReplacementFile::ReplacementFile(const fs::path& place, const File& old) : place_(place) {
    const fs::path folder = place.parent_path();
    removeAbandoned(folder);
    const auto use = old.isOpen() ? File::Use::CreatePrivate : File::Use::Create;
    file_ = createTemporary(folder, use, path_);
    if (!isOpen())
        path_.clear();
    else if (old.isOpen())
        file_.takeAfter(old);
}

ReplacementFile::~ReplacementFile() {
    if (path_.empty())
        return;
#ifdef _WIN32
    file_.close();
#endif
    std::error_code ignored;
    fs::remove(path_, ignored);
}

std::error_code ReplacementFile::commit() {
    const auto failure = [] { return std::error_code(errno, std::generic_category()); };
    if (!file_.sync())
        return failure();
#ifdef _WIN32
    file_.close(); // Windows cannot rename an open file
#endif
    std::error_code error;
    fs::rename(path_, place_, error);
    if (error)
        return error;
    path_.clear();
    return syncFolder(place_.parent_path()) ? error : failure();
}

void ReplacementFile::removeAbandoned(const fs::path& folder) {
    for (int number = 0; number < kWatchedNames; ++number)
        removeIfAbandoned(temporaryName(folder, number));
}

} // namespace skyvert
