#include "object/object_copy.h"

namespace rulemesh {

ObjectCopy::ObjectCopy(std::string utf8) : isLoaded_(document_.loadXML(std::move(utf8)))
{
    if (!isLoaded_)
        return;
    // The name of an element can stand in a path, so nothing that reads by one fails.
    state_.StrTargetTable = Read().RootName();
    state_.BoolMultiTarget = Read().CheckMscripts();
}

} // namespace rulemesh
