#pragma once

namespace rulemesh {

/// What the engine needs of the form: to be shown in chooser mode on the shared values, until it is closed.
class TargetChooser {
public:
    virtual ~TargetChooser() = default;
    virtual void ShowChooser() = 0;
};

} // namespace rulemesh
