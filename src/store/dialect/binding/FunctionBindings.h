#pragma once

#include "store/dialect/binding/functions/SqlFunction.h"

// Functions of the dialect that are more than calls.
namespace zelkor::dialect {

/// Val, CInt and CLng: of a column that is indexed by its number, what meets that index.
bound::Node bindNumberReading(BindContext& context, const SqlFunction& function,
                              std::vector<bound::Node> arguments);
bound::Node bindIsNull(BindContext& context, const SqlFunction& function, std::vector<bound::Node> arguments);
bound::Node bindChoice(BindContext& context, const SqlFunction& function, std::vector<bound::Node> arguments);
/// Nz: without a replacement, Null becomes 0 or the empty text by the type of the value.
bound::Node bindReplacement(BindContext& context, const SqlFunction& function,
                            std::vector<bound::Node> arguments);

}  // namespace zelkor::dialect
