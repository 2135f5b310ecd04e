#pragma once

#include "document/xml_document.h"
#include "views/list_view.h"

namespace rulemesh {

/// Appends one row for each field of a table of the catalogue; nothing for the null handle. The list is not cleared.
void FillSourceFields(ListView& list, XmlNode table);
void FillTargetFields(ListView& list, XmlNode table);

} // namespace rulemesh
