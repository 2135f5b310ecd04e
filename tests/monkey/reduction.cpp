#include "monkey/reduction.h"

#include <algorithm>

namespace rulemesh::monkey {

namespace {

// The last actions mostly suffice.
std::vector<int> ShortestTail(const std::vector<int>& numbers,
                              const std::function<bool(const std::vector<int>&)>& fails)
{
    for (std::size_t length = 8; length < numbers.size(); length *= 4) {
        std::vector<int> tail(numbers.end() - static_cast<std::ptrdiff_t>(length), numbers.end());
        if (fails(tail))
            return tail;
    }
    return numbers;
}

} // namespace

std::string KindOf(const std::string& finding)
{
    std::string kind = finding.substr(0, finding.find('\n'));
    kind = kind.substr(0, kind.find(": "));
    std::erase_if(kind, [](char character) { return character >= '0' && character <= '9'; });
    return kind;
}

std::vector<int> Reduce(std::vector<int> numbers, const std::string& kind, const Replay& replay)
{
    const auto fails = [&](const std::vector<int>& some) {
        const std::optional<std::string> finding = replay(some);
        return finding && KindOf(*finding) == kind;
    };
    numbers = ShortestTail(numbers, fails);
    for (std::size_t length = std::max<std::size_t>(1, numbers.size() / 2); length > 0; length /= 2) {
        bool shorter = true;
        while (shorter) {
            shorter = false;
            for (std::size_t from = 0; from < numbers.size();) {
                std::vector<int> rest = numbers;
                const std::size_t to = std::min(numbers.size(), from + length);
                rest.erase(rest.begin() + static_cast<std::ptrdiff_t>(from),
                           rest.begin() + static_cast<std::ptrdiff_t>(to));
                if (!rest.empty() && fails(rest)) {
                    numbers = std::move(rest);
                    shorter = true;
                } else {
                    from = to;
                }
            }
            shorter = shorter && length == 1;
        }
    }
    return numbers;
}

} // namespace rulemesh::monkey
