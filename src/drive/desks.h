#pragma once

#include <map>
#include <memory>
#include <string>

#include "drive/desk.h"

namespace rulemesh {

/// The controls of a session by name. One without a name is there from the start.
class Desks {
public:
    explicit Desks(StageMaker maker);

    /// The control that the request speaks to: the one that "control" names, or the one without a name. Refused when
    /// there is none of that name.
    [[nodiscard]] Desk& Of(const Request& request) const;

    /// The same, or none where Of refuses the request.
    [[nodiscard]] Desk* Find(const Request& request) const;

    /// Makes the control that the request speaks to, or makes it anew.
    void Create(const Request& request);

private:
    StageMaker maker_;
    std::map<std::string, std::unique_ptr<Desk>> desks_;
};

} // namespace rulemesh
