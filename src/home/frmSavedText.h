#pragma once

#include <QString>
#include <string>

#include "base/Dialogs.h"

namespace zelkor {

/// Writes a file that the person has named, in the place of one that was there; a box says what went wrong.
void saveText(Dialogs& dialogs, const QString& file, const std::string& text);

}  // namespace zelkor
