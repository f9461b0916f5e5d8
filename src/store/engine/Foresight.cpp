#include "store/engine/Foresight.h"

#include <optional>
#include <utility>

#include "base/RuntimeError.h"
#include "store/engine/Connection.h"
#include "store/engine/RecordsetState.h"
#include "store/engine/StatementGroup.h"

namespace zelkor {
namespace {

// What cannot be translated fails where it is asked for, and so does what is no query.
std::optional<AheadStatement> queryAhead(Connection& connection, const std::string& sql) {
  try {
    auto ahead = connection.ahead(sql, false);
    return ahead && ahead->rows ? std::move(ahead) : std::nullopt;
  } catch (const RuntimeError&) {
    return std::nullopt;
  }
}

}  // namespace

Foresight::Foresight(const Database& database, const std::vector<std::string>& statements) {
  if (!StatementGroup::sendsAhead(database)) return;
  connection_ = StatementGroup::connectionOf(database).shared_from_this();
  number_ = connection_->numberForesight();
  try {
    connection_->foreseeTables(statements);
    ask(statements);
  } catch (const RuntimeError&) {
    // Whoever asks next meets the same.
  }
}

void Foresight::ask(const std::vector<std::string>& statements) {
  std::vector<const std::string*> asked;
  std::vector<AheadStatement> sent;
  for (const std::string& sql : statements) {
    if (connection_->hasForeseen(sql)) continue;
    if (auto query = queryAhead(*connection_, sql)) {
      asked.push_back(&sql);
      sent.push_back(*std::move(query));
    }
  }
  connection_->sendQueries(sent);
  for (std::size_t i = 0; i < sent.size(); ++i) {
    try {
      sent[i].rows->startSent();
      sent[i].rows->keepStreaming();  // what is written out meanwhile shall not make it read anew
      connection_->foresee(*asked[i], Recordset(std::move(sent[i].rows)), number_);
    } catch (const RuntimeError& error) {
      if (error.is(ErrorNumber::DeviceIo)) throw;
    }
  }
}

Foresight::~Foresight() {
  if (connection_) connection_->forgetForeseen(number_);
}

}  // namespace zelkor
