#include <gtest/gtest.h>

#include "cards/CardLayout.h"
#include "store/engine/Statement.h"
#include "support/Golden.h"

namespace zelkor::test {
namespace {

/// Where each field of the layout stands, and the order in which one goes through them.
std::string layoutText(CardLayout layout) {
  std::string text;
  for (const CardFieldPlace& place : layOutCard(layout)) {
    text += sql("  ", cardFieldLabel(place.field), ": left ", place.left, ", top ", place.top, ", width ",
                place.width, "\n");
  }
  text += "  order:";
  for (const CardField field : entryOrder(layOutCard(layout))) text += sql(" ", cardFieldLabel(field));
  return text + "\n";
}

TEST(CardLayoutTest, PlacesFieldsAndLeadsThroughThemAsOneReads) {
  expectGolden("cards/golden/layouts.txt", "ordinary card\n" + layoutText(CardLayout::Ordinary) +
                                               "card by workload\n" + layoutText(CardLayout::Workload));
  EXPECT_EQ(cardLayoutOfMethod("工作量法"), CardLayout::Workload);
  EXPECT_EQ(cardLayoutOfMethod("工作量法 "), CardLayout::Ordinary);
}

TEST(CardFieldsTest, haveNumbersInputsAndSizes) {
  std::string text;
  for (const CardFieldRow& field : cardFields()) {
    text += field.label;
    if (!field.enabled()) text += ", locked";
    if (field.hasReference()) text += field.isCode() ? ", picked by code" : ", picked";
    if (field.input == CardInput::Digits) text += ", digits";
    if (field.size() > 0 && !field.hasReference()) text += sql(", at most ", field.size(), " characters");
    text += "\n";
    EXPECT_EQ(&cardField(field.field), &field) << field.label;
  }
  expectGolden("cards/golden/fields.txt", text);
}

}  // namespace
}  // namespace zelkor::test
