#include "engine/shared_form_values.h"

namespace rulemesh {

SharedFormValues& Shared() noexcept
{
    static SharedFormValues values;
    return values;
}

} // namespace rulemesh
