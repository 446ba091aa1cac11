#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace skyvert {

/// What may end long work before its last row.
enum class StoppedBy {
    Nobody,     ///< runs to its end
    ProgramEnd, ///< ends with the program, and only with it
    User,       ///< ends when the user stops it, and with the program
};

/// Shows how far long work has come, and hears when it is to stop. The work runs inside a handler,
/// so an implementation that processes events lets no other handler run before the work has ended.
class Progress {
public:
    virtual ~Progress() = default;

    /// Work begins; `what` says which, for instance "Importing". Most work is over in no time: it
    /// is up to the display when to show something.
    virtual void begin(std::string_view what, StoppedBy stoppedBy) = 0;

    /// `rows` are done, and of the whole work the part `fraction`, from 0 to 1. Returns false when
    /// the work is to stop here.
    virtual bool report(std::int64_t rows, double fraction) = 0;

    virtual void end() = 0;

    /// True from `begin` to `end`.
    virtual bool isWorking() const = 0;
};

/// How much of `count` rows is done with the row of an index.
constexpr double partOf(std::int64_t row, std::int64_t count) {
    return static_cast<double>(row + 1) / static_cast<double>(count);
}

/// Work on many rows, from its construction to its destruction.
class RowWork {
public:
    RowWork(Progress& progress, std::string_view what, StoppedBy stoppedBy) : progress_(progress) {
        progress_.begin(what, stoppedBy);
    }

    ~RowWork() { progress_.end(); }

    RowWork(const RowWork&) = delete;
    RowWork& operator=(const RowWork&) = delete;

    /// Counts a row that took `bytes` of text, so that long rows are reported as often as many
    /// short ones. `fraction` gives the part that is done of the whole; it is called only for a
    /// report. Returns false when the work is to stop here.
    template <typename Fraction>
    bool rowDone(const Fraction& fraction, std::size_t bytes = 0) {
        ++rows_;
        return done(fraction, 1 + bytes / kBytesOfARow);
    }

    /// The same for text that makes no row.
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
