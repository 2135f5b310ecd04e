#include "drive/hello.h"

namespace rulemesh {

Json Introduction(const Offer& offer)
{
    return {{"program", "rulemesh"}, {"version", RULEMESH_VERSION}, {"protocol", ProtocolNumber},
            {"verbs", offer.Verbs},  {"members", offer.Members},    {"views", offer.Views}};
}

} // namespace rulemesh
