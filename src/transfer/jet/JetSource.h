#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "store/catalogue/Revisions.h"
#include "transfer/jet/JetFile.h"
#include "transfer/jet/JetObjects.h"
#include "transfer/jet/JetProblems.h"
#include "transfer/jet/JetSchema.h"
#include "transfer/TransferSource.h"

namespace zelkor {

/// The tables of a Jet file, laid out as an account set has them.
class JetSource : public TransferSource {
 public:
  /// Code page of the texts in Jet 3 files unless another one is given.
  static constexpr const char* kUsualCharset = "GBK";

  /// Reads all definitions. An empty `charset` stands for the usual one. Errors as jet::JetFile's, 3343 when
  /// anything that the file's catalogue, definitions and maps refer to is not there, 13 for an unknown
  /// charset.
  explicit JetSource(const std::filesystem::path& file, const std::string& charset = {});

  const std::vector<TableDef>& tables() const override { return tables_; }
  /// Reading raises error 3343 when the table is damaged or another program has written the file meanwhile.
  std::unique_ptr<RowReader> rows(const TableDef& table) override;
  std::int64_t lastCounter(const TableDef& table) override;
  /// Its tables are laid out as those of a new account set.
  int booksRevision() override { return currentRevision(); }
  const std::vector<TransferProblem>& problems() const override { return problems_.all(); }

  /// What the administrator should know beside the problems, one line each.
  const std::vector<std::string>& notes() const { return notes_; }

 private:
  jet::PlannedTable& planOf(const TableDef& table);
  void planTables(const std::vector<jet::Object>& objects);
  void planTable(const jet::Object& object);
  void noteCharset(const std::string& charset);
  void noteObjects(const std::vector<jet::Object>& objects);
  void noteMissingTables();

  jet::JetFile file_;
  std::unique_ptr<jet::TextDecoder> texts_;
  jet::Problems problems_;
  std::vector<std::string> notes_;
  std::vector<jet::PlannedTable> plans_;
  std::vector<TableDef> tables_;
};

}  // namespace zelkor
