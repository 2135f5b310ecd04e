#include "desktop/access_keys.h"

#include <algorithm>
#include <functional>
#include <vector>

#include <QWidget>

#include "desktop/captions.h"
#include "desktop/rulemesh_widget.h"
#include "desktop/view_surface.h"
#include "views/button.h"
#include "views/tab_control.h"

namespace rulemesh {

namespace {

// Something on the form that has the key: where the focus goes, and what happens when it is the only one.
struct Bearer {
    View* Focus = nullptr;
    std::function<void()> Press;
};

bool HasKey(TextView caption, int key) { return AccessKeyOf(caption) == key; }

bool IsInside(const View& view, const View& parent)
{
    const View* above = view.Parent();
    while (above != nullptr && above != &parent)
        above = above->Parent();
    return above != nullptr;
}

// The view that a label or a frame stands for.
View* StandsFor(const std::vector<View*>& views, const View& caption)
{
    const bool frame = caption.Kind() == ViewKind::Frame;
    const auto found = std::find_if(std::find(views.begin(), views.end(), &caption), views.end(), [&](View* view) {
        return view->TakesFocus() && (!frame || (view->CanBeReached() && IsInside(*view, caption)));
    });
    return found == views.end() ? nullptr : *found;
}

void AddTab(std::vector<Bearer>& bearers, TabControl& tabs, int key)
{
    for (int tab = 0; tab < TabControl::TabCount; ++tab) {
        if (tabs.TabEnabled(tab) && HasKey(tabs.TabCaption(tab), key))
            bearers.push_back({&tabs, [&tabs, tab] { tabs.UserClicksTab(tab); }});
    }
}

std::vector<Bearer> BearersOf(ViewTree& tree, int key)
{
    std::vector<Bearer> bearers;
    for (View* view : tree.Views()) {
        if (!view->CanBeReached())
            continue;
        if (auto* tabs = dynamic_cast<TabControl*>(view); tabs != nullptr)
            AddTab(bearers, *tabs, key);
        const auto* captioned = dynamic_cast<CaptionedView*>(view);
        if (captioned == nullptr || !HasKey(captioned->Caption(), key))
            continue;
        if (auto* button = dynamic_cast<Button*>(view); button != nullptr) {
            bearers.push_back({button, [button] { button->UserClicks(); }});
        } else if (View* focus = StandsFor(tree.Views(), *view); focus != nullptr && focus->CanBeReached()) {
            bearers.push_back({focus, [&tree, focus] { tree.MoveFocus(*focus); }});
        }
    }
    return bearers;
}

ViewSurface& MeantBy(ViewSurface& found)
{
    ViewSurface* meant = nullptr;
    for (RulemeshWidget* designer : found.Root().window()->findChildren<RulemeshWidget*>()) {
        ViewSurface& surface = designer->Surface();
        if (designer->isVisible() && (meant == nullptr || surface.FocusedAt() > meant->FocusedAt()))
            meant = &surface;
    }
    return meant == nullptr ? found : *meant;
}

} // namespace

void PressAccessKey(ViewSurface& found, int key)
{
    ViewSurface& surface = MeantBy(found);
    const std::vector<Bearer> bearers = BearersOf(surface.Tree(), key);
    if (bearers.empty())
        return;
    if (bearers.size() == 1) {
        surface.Act(bearers.front().Press);
        return;
    }
    auto next =
        std::find_if(bearers.begin(), bearers.end(), [](const Bearer& bearer) { return bearer.Focus->HasFocus(); });
    next = next == bearers.end() ? bearers.begin() : next + 1;
    surface.FocusFor(*(next == bearers.end() ? bearers.front() : *next).Focus);
}

} // namespace rulemesh
