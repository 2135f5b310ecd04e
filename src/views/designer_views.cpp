#include "views/designer_views.h"

namespace rulemesh {

DesignerViews::DesignerViews()
{
    MainTab.Pane(0, FrmCondition);
    MainTab.Pane(1, FrmRules);
    FrmRules.Enabled(false);
}

} // namespace rulemesh
