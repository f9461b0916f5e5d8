#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "startup/ImportPreview.h"

// What the workbench knows of a file that is to be imported, and how it has it imported.
namespace zelkor {

enum class ImportKind : std::uint8_t { Cards, Sheets };

struct ImportOrder {
  ImportKind kind = ImportKind::Cards;
  std::string file;
  std::string charset = {};  // of a CSV file; empty: recognised
  int newType = 1;           // of cards: 1 original ones, 2 additions of the month
};

struct ReadImport {
  std::string source;  // where in the file the table stands
  ImportPreview preview;
};

/// Looks at the file as the import would, through connections of its own, which are closed again. `arguments`
/// name the account set and the day. Errors as readTableFile, contentOf and DbEngine::OpenDatabase.
ReadImport readImport(const ImportOrder& order, const std::string& arguments);

/// What the administrator's tool is called with to import it. The rows that it refuses go into the new file
/// `refused`; `backup` is the folder for a backup before, or empty.
std::vector<std::string> importWords(const ImportOrder& order, const std::string& arguments,
                                     const std::string& refused, const std::string& backup);

/// A file that is not there yet, beside the imported one or, where nothing can be written there, in the home
/// folder: "register.拒绝.csv".
std::string freeRefusedFile(const std::string& file);

/// The progress that a program has shown last among what it told; empty for none.
std::string progressIn(const std::string& told);
/// What it told without that.
std::string withoutProgress(std::string_view told);
/// No more lines of it than a person reads; says so where others follow.
std::string firstLines(const std::string& told);

}  // namespace zelkor
