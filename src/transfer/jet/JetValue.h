#pragma once

#include <string>

#include "store/dialect/binding/Schema.h"
#include "transfer/CarriedCell.h"
#include "transfer/jet/JetTable.h"
#include "transfer/jet/JetText.h"

namespace zelkor::jet {

/// The type that holds all values of a column; Unknown for a type whose values cannot be read.
dialect::ColumnType nativeType(const Column& column);

/// Characters of a text column, as the file counts them.
int textSize(const Column& column, const Layout& layout);

/// Reads the values of rows, each in the terms of its column's native type.
class ValueReader {
 public:
  explicit ValueReader(TextDecoder& texts) : texts_(texts) {}

  /// The value in the current row. It may lie in `buffer`, or in the row. What had to be changed or left out
  /// is reported by `complaint` afterwards.
  CarriedCell read(TableWalk& walk, const Column& column, std::string& buffer);
  /// A sentence about the value that was read last; empty when it is carried as it is.
  const std::string& complaint() const { return complaint_; }

 private:
  CarriedCell ofField(TableWalk& walk, const Column& column, std::string_view field, std::string& buffer);
  CarriedCell text(std::string_view bytes, std::string& buffer);
  CarriedCell memo(TableWalk& walk, std::string_view field, std::string& buffer);
  CarriedCell real(double value);
  CarriedCell date(double serial);
  CarriedCell numeric(const Column& column, std::string_view field);

  TextDecoder& texts_;
  std::string longValue_;
  std::string complaint_;
};

}  // namespace zelkor::jet
