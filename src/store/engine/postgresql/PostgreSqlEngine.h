#pragma once

#include <string>

#include "store/engine/Engine.h"
#include "store/engine/postgresql/PostgreSqlLink.h"
#include "store/engine/postgresql/PostgreSqlWords.h"
#include "store/engine/postgresql/ServerFile.h"
#include "store/engine/postgresql/ServerFunctions.h"

namespace zelkor {

/// One schema of a PostgreSQL server, shared with other processes.
///
/// Writers do not shut each other out here, so that a stand-alone statement is a transaction of its own: the
/// server keeps it at once, and forces it to disk when it is asked to make everything durable.
class PostgreSqlEngine final : public Engine {
 public:
  enum class Among : std::uint8_t { Others, Nobody };

  /// Errors: 57 no connection, 3343 no account set in that schema; among nobody 3045 when somebody else has
  /// it open, among others while somebody is alone with it.
  explicit PostgreSqlEngine(const ServerFile& file, Among among = Among::Others);

  const dialect::EngineWords& words() const override { return postgreSqlWords(); }
  std::unique_ptr<EngineStatement> prepare(std::string_view sql) override;
  void run(const std::string& sql) override;
  /// There is no file that could be moved away.
  void requireFile() override {}
  bool gathersWrites() const override { return false; }
  bool runsAhead() const override { return true; }
  bool sendsAhead() const override { return link_->sendsTogether(); }
  std::string remark() const override;
  void takeAnswers() override { link_->readInWhatIsLeft(); }
  void openGroup() override;
  void closeGroup() override;
  void takeBackGroup() override { link_->takeBack(); }
  void keepGroupForTakingBack(bool on) override { link_->keepSavepoint(on); }
  std::uint64_t waits() const override { return link_->waits(); }
  void begin() override;
  void commit() override;
  void rollback() override;
  bool inTransaction() const override { return link_->inTransaction(); }
  void makeDurable() override;
  JobLockAttempt lockForJob(const JobNote& note) override;
  std::optional<JobNote> jobHolder() override;
  long changes() const override { return link_->changes(); }
  std::int64_t lastRowKey() const override { return link_->lastRowKey(); }
  std::vector<std::string> tableNames() override;
  std::optional<dialect::TableInfo> tableInfo(std::string_view table) override;
  std::vector<dialect::TableInfo> tableInfos() override;
  std::vector<dialect::TableInfo> tableInfos(const std::vector<std::string>& names) override;
  std::unique_ptr<StoredTables> storedTables() override;
  int booksRevision() override { return books_.revision; }
  void setBooksRevision(int revision) override;
  bool hasOwnFunctions() override { return books_.hasOwnFunctions(); }
  void layOwnFunctions() override;
  void shutOutOtherRenewals() override;

 private:
  std::vector<dialect::TableInfo> noted(std::vector<dialect::TableInfo> found);

  std::shared_ptr<PostgreSqlLink> link_;
  std::string schema_;
  ServerBooks books_;
};

/// The statements that make a session see the account set in that schema.
std::vector<ServerQuestion> sessionSettings(const std::string& schema);

}  // namespace zelkor
