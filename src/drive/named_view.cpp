#include "drive/named_view.h"

#include "base/utf8.h"

namespace rulemesh {

View& ViewOf(ctlRulemesh& control, const Request& request)
{
    View* view = control.Views().Tree.Find(request.TextMember("view"));
    if (view == nullptr)
        throw Refusal("there is no view \"" + request.Word("view") + "\"");
    return *view;
}

std::vector<std::string> ViewNames(ctlRulemesh& control)
{
    std::vector<std::string> names;
    for (const View* view : control.Views().Tree.Views())
        names.push_back(ToUtf8(view->Name()));
    return names;
}

} // namespace rulemesh
