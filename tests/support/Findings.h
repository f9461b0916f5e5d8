#pragma once

#include <string>

#include "audit/BookCheck.h"
#include "store/engine/Statement.h"

namespace zelkor::test {

/// A finding as one line.
inline std::string findingText(const Finding& one) {
  return sql(one.rule->code, "|", one.card, "|", one.place, "|", one.period, "|",
             one.amount ? one.amount->toText() : "", "|", one.detail, "\n");
}

}  // namespace zelkor::test
