#pragma once

#include <iosfwd>
#include <string_view>

#include "startup/RunContext.h"

namespace zelkor {

struct SheetImportResult {
  long saved = 0;
  long refused = 0;
};

/// Saves each row of a CSV text as a change sheet, in their order and by the checks of the screens. For every
/// row `output` gets line, card, kind, and the sheet's number or the message of the refusal; a refused row
/// does not stop the others. A question that a screen would ask counts as answered with yes. Raises
/// RuntimeError, with nothing saved, when the text is not UTF-8 or its header lacks a needed column.
SheetImportResult importSheets(RunContext& context, std::string_view csv, std::ostream& output);

}  // namespace zelkor
