#pragma once

#include <cstddef>
#include <memory>
#include <tuple>
#include <type_traits>
#include <utility>

namespace rulemesh {

/// What a view shows and knows at one moment: all that its handlers and its front end can read from it.
class ViewValues {
public:
    ViewValues() = default;
    ViewValues(const ViewValues&) = delete;
    ViewValues& operator=(const ViewValues&) = delete;
    virtual ~ViewValues() = default;

    /// The memory that they take, about, without what they share with other values.
    [[nodiscard]] virtual std::size_t Bytes() const noexcept = 0;
};

/// The values of a kind of view, as copies of its members.
template <typename... Members> class MemberValues : public ViewValues {
public:
    MemberValues(const std::tuple<const Members&...>& members, std::size_t outside)
        : copies_(members), outside_(outside)
    {
    }

    [[nodiscard]] std::size_t Bytes() const noexcept override { return sizeof *this + outside_; }

    void AssignTo(const std::tuple<Members&...>& members) const
    {
        CopyTo(members, std::index_sequence_for<Members...>());
    }

private:
    template <std::size_t... At> void CopyTo(const std::tuple<Members&...>& members, std::index_sequence<At...>) const
    {
        ((std::get<At>(members) = std::get<At>(copies_)), ...);
    }

    std::tuple<Members...> copies_;
    std::size_t outside_;
};

/// `outside` is the memory that the copies hold outside of themselves, about.
template <typename... Members>
std::unique_ptr<ViewValues> CopyOf(const std::tuple<Members&...>& members, std::size_t outside = 0)
{
    return std::make_unique<MemberValues<std::remove_const_t<Members>...>>(members, outside);
}

/// Puts copies back that CopyOf has made of the same members.
template <typename... Members> void PutBack(const ViewValues& values, const std::tuple<Members&...>& members)
{
    static_cast<const MemberValues<Members...>&>(values).AssignTo(members);
}

} // namespace rulemesh
