#pragma once

namespace rulemesh {

/// How the program ends when it can't do what it was asked; a wrong command line has the statuses of CLI11, from 100
/// on. docs/drive.md and docs/rulemesh.1 promise these numbers.
enum ExitStatus : int {
    Done = 0,
    NotDone = 1,
    CannotOpenFile = 2,
    CannotWriteAnswer = 3,
    CannotReadRequests = 4,
    RanOutOfMemory = 5,
    NoDisplay = 6,
};

} // namespace rulemesh
