#include "views/tab_control.h"

#include <utility>

#include "views/view_tree.h"

namespace rulemesh {

void TabControl::Tab(int tab)
{
    if (tab == tab_)
        return;
    const int previous = std::exchange(tab_, tab);
    Changed();
    Tree().ReleaseUnreachable();
    Run(Click, static_cast<std::int16_t>(previous));
}

void TabControl::UserClicksTab(int tab)
{
    const ActionScope action(Tree().Acting, {Action::Kind::Move, Click.Action});
    if (tab == tab_ || !Tree().MoveFocus(*this) || !TabEnabled(tab))
        return;
    Tab(tab);
}

} // namespace rulemesh
