#pragma once

#include <algorithm>
#include <cstddef>
#include <memory>
#include <utility>
#include <vector>

namespace rulemesh {

/// A list of values whose copies share what they have in common: copying costs a pointer for each run of values, and
/// changing a value of one copy costs that run. Positions count from 0; a position outside the list is a broken promise
/// of the caller.
template <typename Value> class SharedRows {
public:
    [[nodiscard]] std::size_t size() const noexcept { return size_; }
    [[nodiscard]] bool empty() const noexcept { return size_ == 0; }

    [[nodiscard]] const Value& operator[](std::size_t at) const noexcept
    {
        return (*runs_[at / RunSize])[at % RunSize];
    }

    /// The value at a position, for changing it; no other copy sees the change.
    [[nodiscard]] Value& Change(std::size_t at)
    {
        std::shared_ptr<Run>& run = runs_[at / RunSize];
        if (run.use_count() != 1)
            run = std::make_shared<Run>(*run);
        return (*run)[at % RunSize];
    }

    void push_back(Value value)
    {
        if (size_ % RunSize == 0) {
            auto run = std::make_shared<Run>();
            run->push_back(std::move(value));
            runs_.push_back(std::move(run));
        } else {
            std::shared_ptr<Run>& run = runs_.back();
            if (run.use_count() != 1)
                run = std::make_shared<Run>(*run);
            run->push_back(std::move(value));
        }
        ++size_;
    }

    void clear() noexcept
    {
        runs_.clear();
        size_ = 0;
    }

    /// Put a value in front of another, or take one out; every value behind moves by one.
    void insert(std::size_t at, Value value)
    {
        SharedRows changed;
        for (std::size_t from = 0; from < at; ++from)
            changed.push_back((*this)[from]);
        changed.push_back(std::move(value));
        for (std::size_t from = at; from < size_; ++from)
            changed.push_back((*this)[from]);
        *this = std::move(changed);
    }
    void erase(std::size_t at)
    {
        SharedRows changed;
        for (std::size_t from = 0; from < size_; ++from) {
            if (from != at)
                changed.push_back((*this)[from]);
        }
        *this = std::move(changed);
    }

    /// Whether both hold values that `same` takes for the same. Runs that are shared are not looked into.
    template <typename Same> [[nodiscard]] bool EqualTo(const SharedRows& other, Same same) const
    {
        if (size_ != other.size_)
            return false;
        for (std::size_t run = 0; run < runs_.size(); ++run) {
            if (runs_[run] != other.runs_[run] &&
                !std::equal(runs_[run]->begin(), runs_[run]->end(), other.runs_[run]->begin(), same))
                return false;
        }
        return true;
    }

    /// Shares with another copy again what is the same in both, as far as somebody else holds that too, and gives the
    /// bytes that this one still has alone, about. `share` makes a value share what it can with the other's and tells
    /// whether the two are the same then; `bytes` gives what a value holds outside of itself.
    template <typename Share, typename Bytes> std::size_t ShareWith(const SharedRows& other, Share share, Bytes bytes)
    {
        std::size_t alone = runs_.size() * sizeof(std::shared_ptr<Run>);
        for (std::size_t run = 0; run < runs_.size(); ++run) {
            if (run < other.runs_.size() && runs_[run] == other.runs_[run])
                continue;
            const bool isHeld = run < other.runs_.size() && other.runs_[run].use_count() > 1;
            if (isHeld && ShareRun(runs_[run], other.runs_[run], share))
                continue;
            const Run& mine = *runs_[run];
            alone += mine.size() * (sizeof(Value) + bytes(mine.front()));
        }
        return alone;
    }

private:
    static constexpr std::size_t RunSize = 64;
    using Run = std::vector<Value>;

    // Whether the two runs are one then.
    template <typename Share>
    static bool ShareRun(std::shared_ptr<Run>& run, const std::shared_ptr<Run>& former, Share share)
    {
        Run mine = *run;
        bool same = mine.size() == former->size();
        for (std::size_t at = 0; at < std::min(mine.size(), former->size()); ++at)
            same = share(mine[at], (*former)[at]) && same;
        run = same ? former : std::make_shared<Run>(std::move(mine));
        return same;
    }

    std::vector<std::shared_ptr<Run>> runs_; // all full but the last
    std::size_t size_ = 0;
};

} // namespace rulemesh
