#pragma once

#include <memory>
#include <string>
#include <vector>

#include "store/dialect/binding/Bind.h"
#include "store/dialect/printing/EngineWords.h"
#include "store/dialect/Translation.h"

namespace zelkor::dialect {

/// A query in its bound form, printed in the pieces that a recordset asks for.
class BoundQuery final : public Query {
 public:
  BoundQuery(BoundSelect bound, const BindContext& context, const EngineWords& engine);

  std::string rows(std::span<const std::size_t> outputColumns, Form form) const override;
  std::string rowByKey(std::span<const std::size_t> outputColumns) const override;
  std::string keysWhere(std::string_view criteria) const override;

 private:
  void describeColumns();
  bool readsWholeTable() const;
  std::string assembled(const bound::Select& select, std::span<const std::size_t> outputColumns, bool fast,
                        std::string_view also) const;
  void printColumns(class Emitter& emitter, std::span<const std::size_t> outputColumns) const;
  std::string condition(std::string_view criteria) const;

  BoundSelect bound_;
  std::vector<ParameterSlot> slots_;
  const EngineWords& engine_;
};

/// The query that says whether a text that is read as a number is none; nullopt where no such text is read.
std::optional<std::string> guardQuery(const std::vector<NumberColumn>& columns, const EngineWords& engine);

/// Statements with the constants of `shape` in the places of their parameters.
std::string inlineConstants(std::string_view sql, std::span<const ParameterSlot> slots, const Shape& shape);

}  // namespace zelkor::dialect
