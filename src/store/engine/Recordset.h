#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

#include "base/Value.h"

namespace zelkor {

class RecordsetState;

/// The rows of a query, walked one by one. A handle: copies show the same rows and the same position.
///
/// Rows are read as they are reached; only columns that are asked for are decoded. A query over plain tables
/// can be edited; others raise 3073 on AddNew, Edit and Delete. Reading without a current row is error 3021,
/// a column that the query does not give 3265.
class Recordset {
 public:
  Recordset() = default;  // closed
  explicit Recordset(std::shared_ptr<RecordsetState> state) : state_(std::move(state)) {}

  bool isOpen() const { return state_ != nullptr; }
  /// The platform's EOF and BOF, which <cstdio> takes the names of.
  bool Eof() const;
  bool Bof() const;
  void MoveNext();
  void MovePrevious();
  void MoveFirst();
  void MoveLast();
  /// Rows visited so far: the whole count only after MoveLast.
  long RecordCount() const;

  Value Fields(std::string_view name) const;
  Value Fields(std::size_t index) const;
  std::size_t FieldCount() const;
  const std::string& FieldName(std::size_t index) const;
  /// Whether the field's value is bytes and no text.
  bool FieldIsBinary(std::size_t index) const;
  /// The field as text; Null is error 94.
  std::string Text(std::string_view name) const { return Fields(name).text(); }
  std::string TextOrEmpty(std::string_view name) const { return Fields(name).textOrEmpty(); }

  /// Sets a field of the row being added or edited; a value that the column cannot take is error 3421.
  void Collect(std::string_view name, const Value& value);
  void AddNew();
  void Edit();
  void Update();
  void CancelUpdate();
  void Delete();

  /// Moves to the first (last) row that meets the criteria, an expression of the dialect; NoMatch says
  /// whether.
  void FindFirst(std::string_view criteria);
  void FindLast(std::string_view criteria);
  bool NoMatch() const;
  /// Another walk over the same rows, without a current row of its own until it is moved.
  Recordset Clone() const;
  void Requery();
  /// For a walk that goes on to its end soon, though the event loop turns in between: it goes on streaming
  /// when gathered writes are written out, where others read the rest of their rows one by one. Until its end
  /// the process sees the file as the walk began with it, but for what it writes itself.
  void keepStreaming();
  void Close();

 private:
  RecordsetState& state() const;
  std::shared_ptr<RecordsetState> state_;
};

}  // namespace zelkor
