#pragma once

#include <functional>
#include <memory>
#include <string>

#include "drive/stage.h"

namespace rulemesh {

class Desks;

/// Designers that another program works: takes requests as lines of JSON and is both host and user of one designer, and
/// of as many more as it makes.
class Session {
public:
    /// Designers without a window.
    Session();

    /// Designers on stages of the caller's.
    explicit Session(StageMaker maker);
    ~Session();
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    /// Does the request that stands on the line and returns the answer, a line without its line end. A request that
    /// runs out of memory is answered with a failure; raises std::bad_alloc where there is no memory for that either.
    [[nodiscard]] std::string Answer(const std::string& line);

    /// Whether the last request was carried out to its end.
    [[nodiscard]] bool WasDone() const noexcept { return done_; }

    /// Told what a person should know about the session although no answer holds it, in a line without its end.
    std::function<void(const std::string& warning)> OnWarning = [](const std::string&) {};

private:
    void WarnOfForeignRoot(const ctlRulemesh& control) const;

    std::unique_ptr<Desks> desks_;
    bool done_ = false;
};

} // namespace rulemesh
