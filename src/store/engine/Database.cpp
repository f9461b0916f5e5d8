#include "store/engine/Database.h"

#include <algorithm>

#include "base/RuntimeError.h"
#include "store/dialect/binding/Schema.h"
#include "store/engine/Connection.h"

namespace zelkor {

KeptTogether::KeptTogether(std::shared_ptr<Connection> connection) : connection_(std::move(connection)) {
  if (!connection_) throw RuntimeError(ErrorNumber::ObjectClosed);
  connection_->gathering().hold();
}

KeptTogether::~KeptTogether() {
  connection_->gathering().release();
}

Connection& Database::connection() const {
  if (!connection_) throw RuntimeError(ErrorNumber::ObjectClosed);
  return *connection_;
}

void Database::Execute(std::string_view sql) {
  recordsAffected_ = connection().execute(sql);
}

Recordset Database::OpenRecordset(std::string_view sql) {
  return connection().open(sql);
}

JobLockAttempt Database::lockForJob(const JobNote& note) {
  return connection().engine().lockForJob(note);
}

std::optional<JobNote> Database::jobHolder() {
  return connection().engine().jobHolder();
}

void Database::lockForWriting() {
  connection().gathering().beforeWrite();
}

std::unique_ptr<KeptTogether> Database::shutOthersOut() {
  if (!connection().engine().gathersWrites()) return nullptr;
  connection().gathering().beforeWrite();
  return std::make_unique<KeptTogether>(connection_);
}

std::uint64_t Database::waits() const {
  return connection().engine().waits();
}

std::vector<std::string> Database::TableDefs() const {
  return connection().engine().tableNames();
}

bool Database::HasTable(std::string_view name) const {
  return std::ranges::any_of(TableDefs(),
                             [&](const std::string& table) { return dialect::sameName(table, name); });
}

}  // namespace zelkor
