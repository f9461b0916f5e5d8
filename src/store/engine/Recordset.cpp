#include "store/engine/Recordset.h"

#include "store/dialect/binding/NameErrors.h"
#include "store/engine/RecordsetState.h"

namespace zelkor {

RecordsetState& Recordset::state() const {
  if (!state_) throw RuntimeError(ErrorNumber::ObjectClosed);
  return *state_;
}

bool Recordset::Eof() const {
  return state().atEnd();
}
bool Recordset::Bof() const {
  return state().atBeginning();
}
void Recordset::MoveNext() {
  state().moveNext();
}
void Recordset::MovePrevious() {
  state().movePrevious();
}
void Recordset::MoveFirst() {
  state().moveFirst();
}
void Recordset::MoveLast() {
  state().moveLast();
}
long Recordset::RecordCount() const {
  return state().visited();
}

Value Recordset::Fields(std::string_view name) const {
  RecordsetState& rows = state();
  return rows.value(rows.columnIndex(name));
}

Value Recordset::Fields(std::size_t index) const {
  return state().value(index);
}
std::size_t Recordset::FieldCount() const {
  return state().columns().size();
}

const std::string& Recordset::FieldName(std::size_t index) const {
  const auto& columns = state().columns();
  if (index >= columns.size()) throw dialect::unknownItem(std::to_string(index));
  return columns[index].name;
}

bool Recordset::FieldIsBinary(std::size_t index) const {
  return state().columns().at(index).type == dialect::ColumnType::Binary;
}

void Recordset::Collect(std::string_view name, const Value& value) {
  RecordsetState& rows = state();
  rows.set(rows.columnIndex(name), value);
}

void Recordset::AddNew() {
  state().addNew();
}
void Recordset::Edit() {
  state().edit();
}
void Recordset::Update() {
  state().update();
}
void Recordset::CancelUpdate() {
  state().cancelUpdate();
}
void Recordset::Delete() {
  state().deleteRow();
}
void Recordset::FindFirst(std::string_view criteria) {
  state().find(criteria, false);
}
void Recordset::FindLast(std::string_view criteria) {
  state().find(criteria, true);
}
bool Recordset::NoMatch() const {
  return state().noMatch();
}
Recordset Recordset::Clone() const {
  return Recordset(state().clone());
}
void Recordset::Requery() {
  state().start();
}
void Recordset::keepStreaming() {
  state().keepStreaming();
}
void Recordset::Close() {
  state_.reset();
}

}  // namespace zelkor
