#pragma once

#include <QString>

#include "host/files/object_file.h"
#include "host/opened/open_object.h"

class QWidget;

namespace rulemesh {

/// What the user is asked on the way of an object to the screen.

/// Offers to put back the text from before a save that was cut short, where a copy of it was left. Raises HostError
/// when that can't be done.
void MendCutShortSave(QWidget& window, const QString& path);

/// An object with faulty field numbers would lose rules by being shown and saved: offers to look at it only, which sets
/// the access. False when the user wants none of it. `name` tells the object in the question.
[[nodiscard]] bool AskForReadOnly(QWidget& window, const QString& name, const ObjectText& text, Access& access);

} // namespace rulemesh
