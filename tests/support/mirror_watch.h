#pragma once

#include <QObject>

namespace rulemesh {

/// While it lives, whatever a test does by input, the widgets of every designer and form must show what their views
/// hold: it looks before each input event comes in, and a last time at its end, and fails the test where they differ.
class MirrorWatch : public QObject {
public:
    MirrorWatch();
    ~MirrorWatch() override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Look();

    bool looking_ = false;
};

} // namespace rulemesh
