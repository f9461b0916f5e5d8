#include "home/ImportReading.h"

#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <sstream>

#include "base/Clock.h"
#include "base/FileContent.h"
#include "base/KeptRows.h"
#include "base/RuntimeError.h"
#include "base/TerminalDialogs.h"
#include "cards/CardPreview.h"
#include "cards/CardRow.h"
#include "changes/SheetImport.h"
#include "changes/SheetPreview.h"
#include "startup/Main.h"
#include "tables/TableFile.h"

namespace zelkor {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kRefused = ".拒绝";
constexpr int kMostLines = 1000;
constexpr char kBeginOfLine = '\r';
constexpr std::string_view kRestOfLine = "\x1B[K";

/// The name without what an earlier import has put behind it.
std::string stemOf(const fs::path& file) {
  std::string stem = file.stem().string();
  return stem.substr(0, stem.find(kRefused));
}

fs::path folderFor(const fs::path& file) {
  const fs::path folder = file.parent_path();
  const char* home = std::getenv("HOME");
  return ::access(folder.c_str(), W_OK) == 0 || home == nullptr ? folder : fs::path(home);
}

}  // namespace

ReadImport readImport(const ImportOrder& order, const std::string& arguments) {
  std::error_code ignored;
  if (fs::is_fifo(order.file, ignored))  // nobody may ever write into it
    throw RuntimeError(ErrorNumber::FileNotFound, "“" + order.file + "”不是普通的文件");
  const bool isCards = order.kind == ImportKind::Cards;
  const TableFile table =
      readTableFile(contentOf(order.file),
                    {.charset = order.charset, .needed = isCards ? registerCaptions() : sheetCaptions()});
  KeptRows rows(*table.rows);
  std::istringstream nothing;
  std::ostringstream unsaid;
  TerminalDialogs dialogs(nothing, unsaid);
  const SystemClock clock;
  DbEngine engine(unsaid);
  RunContext context(engine, dialogs, clock);
  prepareRun(context, arguments);
  return {table.source, isCards ? previewCards(context, rows, order.newType) : previewSheets(context, rows)};
}

std::vector<std::string> importWords(const ImportOrder& order, const std::string& arguments,
                                     const std::string& refused, const std::string& backup) {
  const bool isCards = order.kind == ImportKind::Cards;
  std::vector<std::string> words{
      isCards ? "cards" : "sheets", "import", arguments, order.file, "--refused", refused, "--progress"};
  const auto add = [&words](const char* option, const std::string& value) {
    if (!value.empty()) words.insert(words.end(), {option, value});
  };
  if (isCards) add("--new-type", std::to_string(order.newType));
  add("--charset", order.charset);
  add("--backup", backup);
  return words;
}

std::string freeRefusedFile(const std::string& file) {
  const std::string stem = stemOf(file) + std::string(kRefused);
  const fs::path folder = folderFor(file);
  std::error_code ignored;
  fs::path free = folder / (stem + ".csv");
  for (int i = 2; fs::exists(free, ignored); ++i) free = folder / (stem + std::to_string(i) + ".csv");
  return free.string();
}

std::string progressIn(const std::string& told) {
  const std::size_t end = told.rfind(kRestOfLine);
  if (end == std::string::npos) return {};
  const std::size_t begin = told.rfind(kBeginOfLine, end);
  return begin == std::string::npos ? std::string() : told.substr(begin + 1, end - begin - 1);
}

std::string withoutProgress(std::string_view told) {
  std::string text;
  for (std::size_t begin = told.find(kBeginOfLine); begin != std::string::npos;
       begin = told.find(kBeginOfLine)) {
    const std::size_t end = told.find(kRestOfLine, begin);
    if (end == std::string::npos) break;
    text += told.substr(0, begin);
    told.remove_prefix(end + kRestOfLine.size());
  }
  return text.append(told);
}

std::string firstLines(const std::string& told) {
  std::size_t end = 0;
  for (int lines = 0; lines < kMostLines; ++lines) {
    end = told.find('\n', end);
    if (end == std::string::npos) return told;
    ++end;
  }
  return end == told.size() ? told : told.substr(0, end) + "……其余的没有列出。\n";
}

}  // namespace zelkor
