#pragma once

#include <algorithm>
#include <cstddef>
#include <vector>

#include "document/xml_parser.h"

namespace rulemesh::xml {

/// Follows a walk over the text through the list of its large elements.
class LargeElements {
public:
    LargeElements(const std::vector<Slice>& list, std::size_t from) noexcept : list_(list)
    {
        at_ = static_cast<std::size_t>(std::lower_bound(list.begin(), list.end(), from, StartsBefore) - list.begin());
    }

    /// The end of the element that starts here when it is a large one, else 0. The walk must come by every start tag
    /// outside the elements that it was given the end of.
    [[nodiscard]] std::size_t EndOf(std::size_t start) noexcept
    {
        if (at_ == list_.size() || list_[at_].start != start)
            return 0;
        const std::size_t end = list_[at_].end;
        Leap(end);
        return end;
    }

private:
    static bool StartsBefore(const Slice& element, std::size_t offset) noexcept { return element.start < offset; }

    // To the first element from `offset` on: in growing steps, as it is mostly the next one but may be a million on.
    void Leap(std::size_t offset) noexcept
    {
        std::size_t step = 1;
        while (at_ + step < list_.size() && StartsBefore(list_[at_ + step], offset))
            step *= 2;
        const auto from = list_.begin() + static_cast<std::ptrdiff_t>(at_ + step / 2);
        const auto to = list_.begin() + static_cast<std::ptrdiff_t>(std::min(at_ + step + 1, list_.size()));
        at_ = static_cast<std::size_t>(std::lower_bound(from, to, offset, StartsBefore) - list_.begin());
    }

    const std::vector<Slice>& list_;
    std::size_t at_ = 0;
};

} // namespace rulemesh::xml
