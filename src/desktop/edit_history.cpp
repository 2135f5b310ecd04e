#include "desktop/edit_history.h"

#include <algorithm>
#include <utility>

namespace rulemesh {

namespace {

EditHistory::Step Replaced(TextView now, std::size_t from, TextView old, TextView put)
{
    Text whole(now);
    whole.replace(from, old.size(), put);
    return {std::move(whole), from + put.size()};
}

} // namespace

void EditHistory::Note(TextView before, TextView after)
{
    const std::size_t shorter = std::min(before.size(), after.size());
    std::size_t front = 0;
    while (front < shorter && before[front] == after[front])
        ++front;
    std::size_t back = 0;
    while (back < shorter - front && before[before.size() - 1 - back] == after[after.size() - 1 - back])
        ++back;
    Change change = {front, Text(before.substr(front, before.size() - back - front)),
                     Text(after.substr(front, after.size() - back - front))};
    if (change.Removed.empty() && change.Inserted.empty())
        return;
    changes_.resize(done_);
    if (done_ > 0 && Continues(changes_.back(), change)) {
        Change& last = changes_.back();
        last.Inserted += change.Inserted;
        if (change.From < last.From)
            last.Removed.insert(0, change.Removed);
        else
            last.Removed += change.Removed;
        last.From = std::min(last.From, change.From);
        return;
    }
    changes_.push_back(std::move(change));
    ++done_;
}

bool EditHistory::Continues(const Change& last, const Change& next) noexcept
{
    const bool types = next.Removed.empty() && next.Inserted.size() == 1 && next.Inserted[0] > u' ';
    if (types)
        return !last.Inserted.empty() && next.From == last.From + last.Inserted.size() && last.Inserted.back() != u'\n';
    const bool deletes = next.Inserted.empty() && next.Removed.size() == 1 && last.Inserted.empty();
    return deletes && (next.From == last.From || next.From + 1 == last.From);
}

std::optional<EditHistory::Step> EditHistory::Undo(TextView now)
{
    if (!CanUndo())
        return {};
    const Change& change = changes_[--done_];
    return Replaced(now, change.From, change.Inserted, change.Removed);
}

std::optional<EditHistory::Step> EditHistory::Redo(TextView now)
{
    if (!CanRedo())
        return {};
    const Change& change = changes_[done_++];
    return Replaced(now, change.From, change.Removed, change.Inserted);
}

void EditHistory::Clear() noexcept
{
    changes_.clear();
    done_ = 0;
}

} // namespace rulemesh
