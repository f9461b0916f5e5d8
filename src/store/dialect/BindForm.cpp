#include "store/dialect/Bind.h"
#include "store/dialect/Emit.h"
#include "store/dialect/Rewrite.h"

namespace zelkor::dialect {
namespace {

// The printed expression without the numbers of its parameters, which are the only question marks in it.
std::string formOf(const BindContext& context, const bound::Node& node) {
  const auto emitter = emitterFor(EngineKind::Sqlite, context.slots);
  emitter->value(node);
  std::string form;
  bool number = false;
  for (const char c : emitter->take()) {
    if (number && c >= '0' && c <= '9') continue;
    number = c == '?';
    form += c;
  }
  return form;
}

}  // namespace

bool sameForm(const BindContext& context, const bound::Node& left, const bound::Node& right) {
  return formOf(context, left) == formOf(context, right);
}

std::optional<std::size_t> itemAlike(const BindContext& context, const std::vector<bound::Item>& items,
                                     const bound::Node& node) {
  const std::string wanted = formOf(context, node);
  for (std::size_t i = 0; i < items.size(); ++i)
    if (formOf(context, caseBlind(items[i].expr)) == wanted) return i;
  return std::nullopt;
}

}  // namespace zelkor::dialect
