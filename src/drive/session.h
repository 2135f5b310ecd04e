#pragma once

#include <functional>
#include <memory>
#include <string>

namespace rulemesh {

class Stage;

/// One designer that another program works: takes requests as lines of JSON and is both its host and its user.
class Session {
public:
    /// A designer without a window.
    Session();

    /// A designer on a stage of the caller's.
    explicit Session(std::unique_ptr<Stage> stage);
    ~Session();
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    /// Does the request that stands on the line and returns the answer, a line without its line end. A request that
    /// runs out of memory is answered with a failure; raises std::bad_alloc where there is no memory for that either.
    [[nodiscard]] std::string Answer(const std::string& line);

    /// Told what a person should know about the session although no answer holds it, in a line without its end.
    std::function<void(const std::string& warning)> OnWarning = [](const std::string&) {};

private:
    void WarnOfForeignRoot() const;

    class Desk;
    std::unique_ptr<Desk> desk_;
};

} // namespace rulemesh
