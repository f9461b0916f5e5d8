#include "cards/CardLayout.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <tuple>

#include "base/Conversion.h"
#include "base/EmbeddedText.h"
#include "base/RuntimeError.h"
#include "base/Text.h"
#include "startup/Strings.h"
#include "store/catalogue/Catalogue.h"

namespace zelkor {
namespace {

constexpr std::string_view kWorkloadMethod = "工作量法";
constexpr std::string_view kOrdinaryEntry = "1001";
constexpr std::string_view kWorkloadEntry = "1002";

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

/// Entry of the table of layout texts; empty when there is none of that number.
std::string layoutText(std::string_view entry) {
  std::string text;
  bool inEntry = false;
  for (const std::string& line : Split(embeddedText("card-layouts.txt"), '\n')) {
    if (line.starts_with('#')) continue;
    if (line.starts_with('@')) {
      inEntry = line.substr(1) == entry;
    } else if (inEntry) {
      text += line;
    }
  }
  return text;
}

CardDataType dataTypeOf(CardField field, CardLayout layout) {
  using enum CardField;
  switch (field) {
    case CardDate:
    case StartDate:
    case EntryDate:
      return CardDataType::Date;
    case MonthsDepreciated:
      return CardDataType::Int;
    case ResidualRate:
      return CardDataType::Per;
    case MonthlyRate:
      return layout == CardLayout::Workload ? CardDataType::Cur : CardDataType::Per;
    case OriginalValue:
    case ResidualValue:
    case AccumulatedDepreciation:
    case MonthlyDepreciation:
    case NetValue:
    case TotalWorkload:
    case WorkloadDone:
    case DeductibleTax:
      return CardDataType::Cur;
    default:
      return CardDataType::Str;
  }
}

int leftOfColumn(int column) {
  if (column < 1 || column > static_cast<int>(kLefts.size())) {
    throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
  }
  return kLefts[static_cast<std::size_t>(column - 1)];
}

CardFieldPlace placeOf(const std::string& text, CardField field, CardLayout layout) {
  std::vector<std::string> parts;
  SplitString(text, parts, "|", true);
  CardFieldPlace place;
  place.field = field;
  place.dataType = dataTypeOf(field, layout);
  place.row = CInt(Value(element(parts, 1)));
  place.column = CInt(Value(element(parts, 2)));
  const int width = CInt(Value(element(parts, 3)));
  place.width = width == kNarrowWidth ? kNarrowShown : width;
  place.firstReference = element(parts, 4);
  place.secondReference = element(parts, 5);
  place.enabled = element(parts, 6) == "1";
  place.label = element(parts, 7);
  place.left = leftOfColumn(place.column);
  place.top = kTop + kRowHeight * (place.row - 1) + (place.row >= footerRow(layout) ? kFooterGap : 0);
  return place;
}

}  // namespace

CardLayout cardLayoutOfMethod(std::string_view methodName) {
  return methodName == kWorkloadMethod ? CardLayout::Workload : CardLayout::Ordinary;
}

std::vector<CardFieldPlace> layOutCard(CardLayout layout) {
  std::vector<std::string> fields;
  SplitString(layoutText(layout == CardLayout::Workload ? kWorkloadEntry : kOrdinaryEntry), fields, "$",
              true);
  std::vector<CardFieldPlace> places;
  for (const std::string& text : fields) {
    if (text.empty()) continue;
    places.push_back(placeOf(text, static_cast<CardField>(places.size() + 1), layout));
  }
  return places;
}

std::optional<ArchiveKind> archiveOfLabel(std::string_view label) {
  static constexpr std::array<std::pair<std::string_view, ArchiveKind>, 6> kArchives{{
      {"类别编号", ArchiveKind::AssetTypes},
      {"类别名称", ArchiveKind::AssetTypes},
      {"部门名称", ArchiveKind::Departments},
      {"增加方式", ArchiveKind::Origins},
      {"使用状况", ArchiveKind::Statuses},
      {"折旧方法", ArchiveKind::Methods},
  }};
  const auto found = std::ranges::find(kArchives, label, &std::pair<std::string_view, ArchiveKind>::first);
  if (found == kArchives.end()) return std::nullopt;
  return found->second;
}

bool isSubjectLabel(std::string_view label) {
  return label == "对应折旧科目";
}

std::vector<CardField> entryOrder(std::span<const CardFieldPlace> places) {
  std::vector<const CardFieldPlace*> open;
  for (const CardFieldPlace& place : places) {
    // The currency has a reference, but no archive to pick it from.
    const bool pickable = archiveOfLabel(place.label) || isSubjectLabel(place.label);
    if (place.enabled && (!place.hasReference() || pickable)) open.push_back(&place);
  }
  std::ranges::stable_sort(open, {},
                           [](const CardFieldPlace* place) { return std::pair(place->row, place->column); });
  std::vector<CardField> order;
  std::ranges::transform(open, std::back_inserter(order), &CardFieldPlace::field);
  return order;
}

std::size_t cardFieldSize(CardField field) {
  static constexpr std::array<std::pair<CardField, std::string_view>, 4> kColumns{{
      {CardField::AssetNumber, "sAssetNum"},
      {CardField::AssetName, "sAssetName"},
      {CardField::Location, "sSite"},
      {CardField::WorkloadUnit, "sWorkUnit"},
  }};
  const auto found = std::ranges::find(kColumns, field, &std::pair<CardField, std::string_view>::first);
  if (found == kColumns.end()) return 0;
  return static_cast<std::size_t>(catalogueTable("fa_Cards")->info.find(found->second)->size);
}

bool takesDigitsOnly(CardField field) {
  using enum CardField;
  return field == UsefulLife || field == OriginalValue || field == ResidualRate || field == ResidualValue ||
         field == AccumulatedDepreciation || field == NetValue;
}

}  // namespace zelkor
