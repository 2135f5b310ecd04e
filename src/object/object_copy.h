#pragma once

#include <string>

#include "object/mapping_object.h"

namespace rulemesh {

/// A mapping object of one's own, made from a text: for a draft, or for whoever looks at an object without a designer.
/// Its target table is the one that the root names.
class ObjectCopy {
public:
    /// The text is UTF-8. One that is no XML gives an empty object.
    explicit ObjectCopy(std::string utf8);
    ObjectCopy(const ObjectCopy&) = delete;
    ObjectCopy& operator=(const ObjectCopy&) = delete;

    [[nodiscard]] bool IsLoaded() const noexcept { return isLoaded_; }
    [[nodiscard]] const MappingReader& Read() const noexcept { return object_.Read(); }
    [[nodiscard]] MappingObject& Object() noexcept { return object_; }

    /// The text as it stands now; what was not touched comes back byte for byte.
    [[nodiscard]] std::string XmlUtf8() const { return document_.xmlUtf8(); }

private:
    XmlDocument document_;
    ControlState state_;
    MappingObject object_{document_, state_};
    bool isLoaded_;
};

} // namespace rulemesh
