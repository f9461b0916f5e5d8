#include <charconv>

#include "store/dialect/binding/Bind.h"
#include "store/dialect/binding/Rewrite.h"
#include "store/dialect/printing/Emit.h"

namespace zelkor::dialect {
namespace {

struct Form {
  std::string text;  // the printed expression without the numbers of its parameters
  std::vector<std::size_t> slots;
};

// Parameters are the only question marks in a printed expression.
Form formOf(const BindContext& context, const bound::Node& node) {
  const auto emitter = emitterFor(EngineKind::Sqlite, context.slots);
  emitter->value(node);
  const std::string printed = emitter->take();
  Form form;
  for (const char* c = printed.data(); c != printed.data() + printed.size(); ++c) {
    form.text += *c;
    std::size_t number = 0;
    if (*c != '?') continue;
    const auto [end, failure] = std::from_chars(c + 1, printed.data() + printed.size(), number);
    if (failure == std::errc() && number >= 1 && number <= context.slots.size())
      form.slots.push_back(number - 1);
    c = end - 1;
  }
  return form;
}

bool sameLiteral(const BindContext& context, std::size_t left, std::size_t right) {
  const Literal& a = context.literalOf(left);
  const Literal& b = context.literalOf(right);
  return a.kind == b.kind && a.content() == b.content();
}

bool alike(BindContext& context, const Form& left, const Form& right) {
  if (left.text != right.text) return false;
  if (left.slots == right.slots) return true;
  context.dependsOnLiterals = true;
  for (std::size_t i = 0; i < left.slots.size(); ++i)
    if (!sameLiteral(context, left.slots[i], right.slots[i])) return false;
  return true;
}

}  // namespace

bool sameForm(BindContext& context, const bound::Node& left, const bound::Node& right) {
  return alike(context, formOf(context, left), formOf(context, right));
}

std::optional<std::size_t> itemAlike(BindContext& context, const std::vector<bound::Item>& items,
                                     const bound::Node& node) {
  const Form wanted = formOf(context, node);
  for (std::size_t i = 0; i < items.size(); ++i)
    if (alike(context, formOf(context, caseBlind(items[i].expr)), wanted)) return i;
  return std::nullopt;
}

}  // namespace zelkor::dialect
