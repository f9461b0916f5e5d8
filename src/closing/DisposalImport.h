#pragma once

#include <functional>
#include <string>

#include "closing/DisposalTable.h"
#include "startup/ImportLog.h"

namespace zelkor {

/// How a row of a file of disposals ended. Before: an earlier call has taken the asset off the books. Broken:
/// the disposal ended in an error; what it wrote until then stays.
enum class DisposalEnd { Disposed, Before, Broken };

/// What became of one row.
struct ImportedDisposal {
  std::size_t line = 0;  // of the file, from 1
  std::string cardNum;
  DisposalEnd end = DisposalEnd::Disposed;
  bool offTheBooks = true;  // false for some that are broken
};

/// A file of disposals on its way into the books.
///
/// The log of operations keeps each row whose asset has left the books, together with the disposal. A file
/// that was cut short is given again as a whole: those assets are passed over.
class DisposalImport {
 public:
  /// Lists the rows. `context` must outlive the object.
  DisposalImport(RunContext& context, std::span<const CsvTableRow> rows);

  /// The cells that the screen would not have let in, by line and column; without any the assets may go.
  const std::vector<std::string>& problems() const { return problems_; }

  /// Takes the assets off the books one after the other and calls `ended` after each. Stops with a message at
  /// an asset whose way is not filled in; false then. Raises what disposeOfAssets raises.
  bool dispose(const std::function<void(const ImportedDisposal&)>& ended);

 private:
  struct Row {
    std::size_t line = 0;
    std::string text;  // as the log has it
    DisposedAsset asset;
    bool before = false;
  };
  void add(const CsvTableRow& row, const DisposedAsset& asset);
  bool dispose(const Row& row, ImportedDisposal& told);

  RunContext& context_;
  ImportLog log_;
  std::vector<Row> rows_;
  std::vector<std::string> problems_;
};

}  // namespace zelkor
