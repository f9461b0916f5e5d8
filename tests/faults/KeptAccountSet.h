#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "support/AccountSetCopy.h"

namespace zelkor::test {

/// An account set of January 2020 with the sample archives, in files or beside a server, whose state can be
/// kept and given back.
class KeptAccountSet {
 public:
  KeptAccountSet();

  std::filesystem::path operator/(std::string_view name) const { return home_ / name; }
  std::string dataFile() const { return home_ / "ZkData.Mdb"; }
  /// The argument string that starts this run type on 2020-01-15.
  std::string argument(const std::string& runType, const std::string& user = "张三") const;

  void keep();
  /// What was kept; whoever still works on the account set beside a server is cut off.
  void restore();

  /// True when the engine finds nothing wrong with the file; a server looks after itself.
  bool isIntact() const;
  /// The first cell of a query in the engine's own language.
  std::string ask(const std::string& query) const;
  /// Rows of a table as lines of their cells, in the order in which they were added. Without autonumbers:
  /// they go on counting after rows that were written before.
  std::vector<std::string> rows(const std::string& table) const;
  /// See contentOf.
  std::vector<std::string> content(const std::vector<std::string>& without) const;

 private:
  TempDir home_;
  TempDir kept_;
  AccountSetCopy files_{home_.path()};
  std::unique_ptr<TestDatabase> keptDatabase_;
};

/// Every row of every table of a data file but those named, as sorted lines "table: cells".
std::vector<std::string> contentOf(const std::string& dataFile, const std::vector<std::string>& without);

/// The lines that only one of two sorted contents has, the first few of them.
std::string differenceOf(const std::vector<std::string>& a, const std::vector<std::string>& b);

}  // namespace zelkor::test
