#include "drive/layout_requests.h"

#include "drive/named_view.h"

namespace rulemesh {

Json ResizeControl(ctlRulemesh& control, const Request& request)
{
    const int width = request.Number("width");
    control.Resize(width, request.Number("height"));
    return nullptr;
}

Json SetVisible(ctlRulemesh& control, const Request& request)
{
    View& view = ViewOf(control, request);
    view.Visible(request.Flag("visible"));
    return nullptr;
}

} // namespace rulemesh
