#include <set>

#include "base/RuntimeError.h"
#include "store/engine/Binding.h"
#include "store/engine/Connection.h"
#include "store/engine/RecordsetState.h"

namespace zelkor {

void RecordsetState::set(std::size_t column, const Value& value) {
  if (!edit_) throw RuntimeError(ErrorNumber::UpdateWithoutEdit);
  edit_->set(column, columns().at(column), value);
}

void RecordsetState::addNew() {
  if (!keyed()) throw RuntimeError(ErrorNumber::OperationNotUpdatable);
  edit_ = RowEdit::adding();
}

void RecordsetState::edit() {
  look();
  requireCurrentRow();
  if (!keyed()) throw RuntimeError(ErrorNumber::OperationNotUpdatable);
  edit_ = RowEdit::editing();
}

RowEdit::Target RecordsetState::editTarget(const RowEdit& edit) const {
  RowEdit::Target target{query_->query().sources(), {}};
  if (!edit.isNewRow())
    target.keys = std::span(keys_).subspan(static_cast<std::size_t>(current_) * sources(), sources());
  return target;
}

void RecordsetState::update() {
  if (!edit_) throw RuntimeError(ErrorNumber::UpdateWithoutEdit);
  write(*edit_);
  edit_.reset();
}

RowEdit RecordsetState::takeEdit() {
  if (!edit_) throw RuntimeError(ErrorNumber::UpdateWithoutEdit);
  RowEdit edit = std::move(*edit_);
  edit_.reset();
  return edit;
}

std::unique_ptr<EngineStatement> RecordsetState::ahead(const RowEdit& edit) const {
  return edit.ahead(*connection_, editTarget(edit));
}

void RecordsetState::write(const RowEdit& edit) {
  if (!untouched_) collectAll();
  const std::optional<std::int64_t> newKey = edit.write(*connection_, editTarget(edit));
  cachedRow_ = -1;
  if (untouched_ || !newKey || sources() != 1) return;
  // A new row comes after the others, and the current row stays current.
  keys_.emplace_back(*newKey);
  ++known_;
  if (atEnd_) current_ = known_;
}

void RecordsetState::deleteRow() {
  look();
  requireCurrentRow();
  if (sources() != 1) throw RuntimeError(ErrorNumber::OperationNotUpdatable);
  collectAll();
  const auto row = keys_.begin() + current_;
  zelkor::deleteRow(*connection_, query_->query().sources().front().table, row->value());
  keys_.erase(row);
  --known_;
  --visited_;
  --current_;
  currentDeleted_ = true;
}

void RecordsetState::find(std::string_view criteria, bool last) {
  if (!keyed()) throw RuntimeError(ErrorNumber::OperationNotSupported, "此类型的对象不支持该操作。");
  const auto statement = connection_->engine().prepare(query_->query().keysWhere(criteria));
  bindSlots(*statement, query_->slots(), literals_);
  statement->sendAhead();  // one wait for both
  collectAll();
  edit_.reset();
  std::set<std::vector<RowKey>> matches;
  while (statement->step()) matches.insert(keysOf(*statement));
  const auto matchesRow = [&](long row) {
    const auto first = keys_.begin() + row * static_cast<long>(sources());
    return matches.contains(std::vector<RowKey>(first, first + static_cast<long>(sources())));
  };
  noMatch_ = true;
  for (long i = 0; i < known_ && noMatch_; ++i) {
    const long row = last ? known_ - 1 - i : i;
    if (!matchesRow(row)) continue;
    noMatch_ = false;
    standOn(row);
  }
}

std::shared_ptr<RecordsetState> RecordsetState::clone() {
  collectAll();
  auto copy = std::make_shared<RecordsetState>(connection_, query_, sql_, literals_);
  copy->keys_ = keys_;
  copy->rows_ = rows_;
  copy->known_ = known_;
  copy->atEnd_ = known_ == 0;
  return copy;
}

}  // namespace zelkor
