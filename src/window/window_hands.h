#pragma once

#include <memory>
#include <optional>
#include <vector>

#include <QPoint>

#include "base/failure.h"
#include "drive/user_hands.h"

class QWidget;

namespace rulemesh {

class FormDialog;
class ViewSurface;

/// A user at the real widgets: every request becomes mouse, key and input events at the right place of the right
/// widget. A failure that an event ended with comes out of the request, as it does without a window.
class WindowHands : public UserHands {
public:
    WindowHands();
    ~WindowHands() override;
    WindowHands(const WindowHands&) = delete;
    WindowHands& operator=(const WindowHands&) = delete;

    /// Takes a designer in hand; none to let it go. It must outlive its time here.
    void WorkOn(ViewSurface* designer);

    void Click(Button& button) override;
    void Click(PictureButton& picture) override;
    void ClickTab(TabControl& tabs, int tab) override;
    void MoveFocus(ViewTree& tree, View& view) override;
    void Leave(ViewTree& tree) override;
    void Type(TextBox& box, const Text& StrText) override;
    void Choose(ComboBox& combo, int index) override;
    void ClickRow(ListView& list, int row) override;
    void Tick(ListView& list, int row, bool on) override;
    void ClickHeader(ListView& list, int column) override;
    void ClickCell(Grid& grid, int row, int col, Grid::Clicks clicks) override;
    void PressCharacter(Grid& grid, std::int16_t KeyAscii) override;
    void Scroll(Grid& grid, int top) override;
    bool PressKey(ViewTree& tree, View& view, std::int16_t KeyCode, std::int16_t Shift) override;
    void FormOpens(ModalForm& form) override;
    void CloseForm(ModalForm& form) override;
    void FormClosed(ModalForm& form) override;

private:
    [[nodiscard]] ViewSurface& SurfaceOf(const View& view);
    void Watch(ViewSurface& surface);
    void Activate(QWidget& widget);

    /// Raises what the last events ended with.
    void Finish();

    ViewSurface* designer_ = nullptr;
    std::vector<std::unique_ptr<FormDialog>> dialogs_; // the forms that are open, the topmost last
    std::optional<Failure> raised_;
};

} // namespace rulemesh
