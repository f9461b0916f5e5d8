#include "apps/zelkorctl/SheetCommands.h"

#include <iostream>

#include "apps/zelkorctl/CommandRun.h"
#include "apps/zelkorctl/SheetImport.h"
#include "base/TerminalDialogs.h"
#include "startup/Main.h"

namespace zelkor {

int importSheetsCommand(const SheetImportOptions& options, std::ostream& output) {
  const std::string csv = contentOf(options.file);
  const auto clock = clockOf(options.today);
  DbEngine engine;
  TerminalDialogs dialogs(std::cin, output);
  RunContext context(engine, dialogs, *clock);
  prepareRun(context, options.arguments);
  const SheetImportResult result = importSheets(context, csv, output);
  engine.flush();
  output << "共 " << result.saved + result.refused << " 行：已保存 " << result.saved << " 行，拒绝 "
         << result.refused << " 行\n";
  return result.refused == 0 ? 0 : 1;
}

}  // namespace zelkor
