#pragma once

#include <cstdint>
#include <functional>
#include <memory>

#include "base/text.h"
#include "views/view_values.h"

namespace rulemesh {

class View;
class ViewTree;

/// What the logic hangs on an event of a view, and how a menu names what the user does by it. An empty slot runs
/// nothing.
template <typename Signature> class Event : public std::function<Signature> {
public:
    using std::function<Signature>::operator=;

    TextView Action; // of a text that lives as long as the program
};

using Slot = Event<void()>;

/// A key that goes down. The handler cancels the key by setting KeyCode to 0.
using KeySlot = Event<void(std::int16_t& KeyCode, std::int16_t Shift)>;

enum class ViewKind { Button, Label, Frame, Text, Syntax, List, Combo, Grid, Tab, Picture };

/// Left and top relative to the parent, width and height; all in twips, 1440 to the inch.
struct Placement {
    int Left = 0;
    int Top = 0;
    int Width = 0;
    int Height = 0;
};

/// Name and size (in points) of the type in which a view shows its text.
struct Font {
    TextView Name = u"Verdana";
    double Size = 8.25;
    bool Bold = false;

    friend bool operator==(const Font&, const Font&) = default;
};

inline constexpr Font SansSerif{u"MS Sans Serif", 8.25, false};
inline constexpr Font BoldSansSerif{u"MS Sans Serif", 8.25, true};

/// How a view comes out of the design, before anything has run.
struct ViewDesign {
    TextView Name;
    View* Parent = nullptr;
    Placement Place = {};
    TextView Caption = {};
    bool Visible = true;
    TextView ToolTip = {};
    Font Type = {};
    bool Floats = false;      // stands where it is used: no layout pass places it
    bool LooksAround = false; // a click on it is a move
};

/// What is common to all views: a place, flags, and a share in the focus. Nothing here knows of pixels; a front end
/// draws this state and calls the entrances that begin with `User`.
class View {
public:
    View(ViewTree& tree, ViewKind kind, const ViewDesign& design);
    virtual ~View() = default;
    View(const View&) = delete;
    View& operator=(const View&) = delete;

    [[nodiscard]] TextView Name() const noexcept { return name_; }
    [[nodiscard]] ViewKind Kind() const noexcept { return kind_; }
    [[nodiscard]] View* Parent() const noexcept { return parent_; }

    /// The view's own flags, whatever its parents and the tab.
    [[nodiscard]] bool Visible() const noexcept { return visible_; }
    [[nodiscard]] bool Enabled() const noexcept { return enabled_; }

    /// Hiding or disabling the view that has the focus, or a parent of it, runs its lost-focus handler.
    void Visible(bool visible);
    void Enabled(bool enabled);

    [[nodiscard]] int Left() const noexcept { return place_.Left; }
    [[nodiscard]] int Top() const noexcept { return place_.Top; }
    [[nodiscard]] int Width() const noexcept { return place_.Width; }
    [[nodiscard]] int Height() const noexcept { return place_.Height; }
    [[nodiscard]] int Right() const noexcept { return place_.Left + place_.Width; }
    [[nodiscard]] int Bottom() const noexcept { return place_.Top + place_.Height; }
    void Left(int left);
    void Top(int top);

    /// Raise InvalidPropertyValue for a negative length.
    void Width(int width);
    void Height(int height);

    [[nodiscard]] const Text& ToolTip() const noexcept { return toolTip_; }
    void ToolTip(Text text);

    [[nodiscard]] const Font& Type() const noexcept { return font_; }
    void Type(const Font& font);

    /// Whether the user can get at the view: it and every parent are visible and enabled, and its tab is shown.
    [[nodiscard]] bool CanBeReached() const noexcept;

    /// Whether the view shows on its parent: it is visible, and on the tab that is shown.
    [[nodiscard]] bool IsShown() const noexcept { return visible_ && (parent_ == nullptr || parent_->Shows(*this)); }

    [[nodiscard]] bool HasFocus() const noexcept;

    /// The designer's own call: does nothing for a view that can't be reached.
    void SetFocus();

    /// Whether a click on the view is a move, which changes nothing that the user made.
    [[nodiscard]] bool LooksAround() const noexcept { return looksAround_; }

    /// Whether the view is of a kind that takes the focus at all.
    [[nodiscard]] bool TakesFocus() const noexcept;

    /// What the view shows and knows now, but for what a layout pass or a setting of the host decides: left, width and
    /// column widths, and the colouring of scripts. Views that did not change in between give the same values.
    [[nodiscard]] std::shared_ptr<const ViewValues> Values() const;

    /// Puts values back that the view has given. Runs no handler and moves no focus; the front end is told.
    void Values(const std::shared_ptr<const ViewValues>& values);

    Slot GotFocus;
    Slot LostFocus;
    KeySlot KeyDown;

protected:
    [[nodiscard]] ViewTree& Tree() const noexcept { return tree_; }

    /// To be called with each change of a value: the values are new, and the front end is told.
    void Changed();

    /// To be called with a change of a value that the front end doesn't show.
    void ChangedUnseen() noexcept { values_.reset(); }

    /// Tells the front end that the view has to be shown anew; many changes are told once.
    void TellFrontEnd();

    /// Copies what a kind of view has of its own, and puts it back.
    [[nodiscard]] virtual std::unique_ptr<ViewValues> CopyOwnValues() const = 0;
    virtual void PutOwnValuesBack(const ViewValues& values) = 0;

    /// What the platform does by itself when the view gets the focus, before the got-focus handler.
    virtual void BeforeGotFocus() {}

    /// Whether a child of this view is shown as far as this view decides.
    [[nodiscard]] virtual bool Shows(const View& /*child*/) const noexcept { return true; }

private:
    friend class ViewTree;

    [[nodiscard]] bool ParentsCanBeReached() const noexcept;

    ViewTree& tree_;
    ViewKind kind_;
    Text name_;
    View* parent_;
    Placement place_;
    bool visible_;
    bool enabled_ = true;
    bool floats_;
    bool looksAround_;
    Text toolTip_;
    Font font_;
    bool changed_ = false;                             // told to the front end, which has not looked yet
    mutable std::shared_ptr<const ViewValues> values_; // as they are now, once somebody has asked for them
};

/// Runs a slot that may be empty.
template <typename SlotType, typename... Arguments> void Run(const SlotType& slot, Arguments&&... arguments)
{
    if (slot)
        slot(std::forward<Arguments>(arguments)...);
}

} // namespace rulemesh
