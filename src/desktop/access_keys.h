#pragma once

namespace rulemesh {

class ViewSurface;

/// The user presses the access key of a letter or digit, given in upper case, and the toolkit found a view of this
/// surface that has it. Where several designers
/// stand in one window, the key is for the one with the focus, or else the one that had it last. There, a button is
/// pressed and a tab shown; a label brings the focus to the view behind it, a frame to its first one. A key that
/// several views have goes from one to the next and presses none.
void PressAccessKey(ViewSurface& found, int key);

} // namespace rulemesh
