#include "cards/CardLayout.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <utility>

namespace zelkor {
namespace {

constexpr std::string_view kWorkloadMethod = "工作量法";

constexpr int kTop = 58;
constexpr int kRowHeight = 19;
constexpr int kFooterGap = 15;
constexpr std::array kLefts = {165, 355, 544};
constexpr int kNarrowWidth = 80;
constexpr int kNarrowShown = 96;

/// The row from which the layout keeps a distance to what is above.
int footerRow(CardLayout layout) {
  return layout == CardLayout::Workload ? 13 : 11;
}

}  // namespace

CardLayout cardLayoutOfMethod(std::string_view methodName) {
  return methodName == kWorkloadMethod ? CardLayout::Workload : CardLayout::Ordinary;
}

std::vector<CardFieldPlace> layOutCard(CardLayout layout) {
  std::vector<CardFieldPlace> places;
  for (const CardFieldRow& field : cardFields()) {
    const int row = layout == CardLayout::Workload ? field.workloadRow : field.row;
    if (row == 0) continue;
    const int gap = row >= footerRow(layout) ? kFooterGap : 0;
    places.push_back({.field = field.field,
                      .row = row,
                      .column = field.column,
                      .left = kLefts.at(static_cast<std::size_t>(field.column - 1)),
                      .top = kTop + kRowHeight * (row - 1) + gap,
                      .width = field.width == kNarrowWidth ? kNarrowShown : field.width});
  }
  return places;
}

std::vector<CardField> entryOrder(std::span<const CardFieldPlace> places) {
  std::vector<const CardFieldPlace*> open;
  for (const CardFieldPlace& place : places) {
    const CardFieldRow& field = cardField(place.field);
    if (field.enabled() && (!field.hasReference() || field.isCode())) open.push_back(&place);
  }
  std::ranges::stable_sort(open, {},
                           [](const CardFieldPlace* place) { return std::pair(place->row, place->column); });
  std::vector<CardField> order;
  std::ranges::transform(open, std::back_inserter(order), &CardFieldPlace::field);
  return order;
}

}  // namespace zelkor
