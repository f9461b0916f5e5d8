#pragma once

#include <optional>
#include <QString>
#include <span>

#include "base/Dialogs.h"

class QWidget;

namespace zelkor {

/// A form in which something can be saved.
struct FileForm {
  const char* format;  // "csv", what its files' names end in
  const char* filter;  // "CSV (*.csv)"
};

struct SavedFile {
  QString name;
  QString format;
};

/// Asks where to save it. What the name ends in counts, or else the form that is chosen, whose ending it gets
/// then; a file that is there under the whole name is replaced only where a box has agreed. Nothing when it
/// was left.
std::optional<SavedFile> askWhereToSave(Dialogs& dialogs, QWidget& over, const QString& name,
                                        std::span<const FileForm> forms);

}  // namespace zelkor
