#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace skyvert {

/// Who may stop long work before its last row.
enum class StoppedBy {
    Nobody,     ///< the work runs to its end
    ProgramEnd, ///< only the end of the program
    User,       ///< the user, and the end of the program
};

/// Shows the progress of long work and tells the work when to stop. The work runs inside a handler,
/// so an implementation that processes events must let no other handler run before the work ends.
class Progress {
public:
    virtual ~Progress() = default;

    /// Called when work begins; `what` names it, for instance "Importing". Most work ends quickly,
    /// so an implementation may wait before it shows anything.
    virtual void begin(std::string_view what, StoppedBy stoppedBy) = 0;

    /// Called when `rows` rows are done and, from 0 to 1, `fraction` of the whole work. Returns
    /// false if the work must stop.
    virtual bool report(std::int64_t rows, double fraction) = 0;

    /// Called when work ends.
    virtual void end() = 0;

    /// True from `begin` to `end`.
    virtual bool isWorking() const = 0;
};

/// The fraction of `count` rows that is done after row `row`, counted from 0.
constexpr double partOf(std::int64_t row, std::int64_t count) {
    return static_cast<double>(row + 1) / static_cast<double>(count);
}

/// Work on many rows, which lasts as long as this object.
class RowWork {
public:
    RowWork(Progress& progress, std::string_view what, StoppedBy stoppedBy) : progress_(progress) {
        progress_.begin(what, stoppedBy);
    }

    ~RowWork() { progress_.end(); }

    RowWork(const RowWork&) = delete;
    RowWork& operator=(const RowWork&) = delete;

    /// Counts a row that took `bytes` of text. Progress is reported by rows and bytes, so that long
    /// rows do not delay it. `fraction` returns the fraction of the work that is done; it is called
    /// only for a report. Returns false if the work must stop.
    template <typename Fraction>
    bool rowDone(const Fraction& fraction, std::size_t bytes = 0) {
        ++rows_;
        return done(fraction, 1 + bytes / kBytesOfARow);
    }

    /// The same for text that is not a row.
    template <typename Fraction>
    bool bytesDone(const Fraction& fraction, std::size_t bytes) {
        return done(fraction, bytes / kBytesOfARow);
    }

private:
    static constexpr std::size_t kRowsBetweenReports = 4096;
    static constexpr std::size_t kBytesOfARow = 256;

    template <typename Fraction>
    bool done(const Fraction& fraction, std::size_t usualRows) {
        sinceReport_ += usualRows;
        if (sinceReport_ < kRowsBetweenReports)
            return true;
        sinceReport_ = 0;
        return progress_.report(rows_, fraction());
    }

    Progress& progress_;
    std::int64_t rows_ = 0;
    std::size_t sinceReport_ = 0;
};

} // namespace skyvert
