#pragma once

#include <cstdint>
#include <string_view>

namespace skyvert {

/// Shows how far long work has come. The work runs inside a handler, so whoever implements this
/// paints what it shows and lets no other handler run.
class Progress {
public:
    virtual ~Progress() = default;

    /// Work begins; `what` says which, for instance "Importing". Most work is over in no time: it
    /// is up to the display when to show something.
    virtual void begin(std::string_view what) = 0;

    /// `rows` are done, and of the whole work the part `fraction`, from 0 to 1.
    virtual void report(std::int64_t rows, double fraction) = 0;

    virtual void end() = 0;
};

/// How much of `count` rows is done with the row of an index.
constexpr double partOf(std::int64_t row, std::int64_t count) {
    return static_cast<double>(row + 1) / static_cast<double>(count);
}

/// Work on many rows, from its construction to its destruction.
class RowWork {
public:
    RowWork(Progress& progress, std::string_view what) : progress_(progress) {
        progress_.begin(what);
    }

    ~RowWork() { progress_.end(); }

    RowWork(const RowWork&) = delete;
    RowWork& operator=(const RowWork&) = delete;

    /// Counts a row. `fraction` gives the part that is done of the whole; it is asked for now and
    /// then only.
    template <typename Fraction>
    void rowDone(const Fraction& fraction) {
        if (++rows_ % kRowsBetweenReports == 0)
            progress_.report(rows_, fraction());
    }

private:
    static constexpr std::int64_t kRowsBetweenReports = 4096;

    Progress& progress_;
    std::int64_t rows_ = 0;
};

} // namespace skyvert
