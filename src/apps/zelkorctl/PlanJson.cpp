#include "apps/zelkorctl/PlanJson.h"

#include <nlohmann/json.hpp>
#include <ostream>
#include <span>
#include <string_view>

#include "base/Format.h"

namespace zelkor {
namespace {

/// Writes the object piece by piece: a plan of many cards is large.
class PlanJson {
 public:
  PlanJson(const DeprPlan& plan, std::ostream& out) : plan_(plan), out_(out) {}

  void write(const std::string& by);

 private:
  void writeText(std::string_view text) {
    out_ << nlohmann::json(text).dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
  }
  void writeField(std::string_view name, std::string_view text) {
    writeText(name);
    out_ << ':';
    writeText(text);
    out_ << ',';
  }
  void writeAmounts(std::span<const Currency> amounts);
  void writeMonths();
  void writeRemarks();
  void writeGroups(std::string_view name, const std::vector<DeprGroup<MonthlyAmounts>>& groups);
  void writeCards();

  const DeprPlan& plan_;
  std::ostream& out_;
};

void PlanJson::writeAmounts(std::span<const Currency> amounts) {
  out_ << "\"amounts\":[";
  const char* separator = "";
  for (const Currency amount : amounts) {
    out_ << separator << amount.toText();
    separator = ",";
  }
  out_ << ']';
}

void PlanJson::writeMonths() {
  out_ << "\"months\":[";
  for (std::size_t month = 0; month < plan_.months; ++month) {
    if (month > 0) out_ << ',';
    writeText(Format(DateAdd("m", static_cast<std::int64_t>(month), plan_.month), "yyyy-mm"));
  }
  out_ << "],\n";
}

void PlanJson::writeRemarks() {
  out_ << "\"remarks\":[";
  const char* separator = "";
  for (const std::string& remark : plan_.remarks) {
    out_ << separator;
    writeText(remark);
    separator = ",";
  }
  out_ << "],\n";
}

void PlanJson::writeGroups(std::string_view name, const std::vector<DeprGroup<MonthlyAmounts>>& groups) {
  out_ << ",\n\"" << name << "\":[";
  const char* separator = "\n";
  for (const auto& group : groups) {
    out_ << separator << '{';
    writeField("number", group.number);
    writeField("name", group.name);
    writeAmounts(group.sums);
    out_ << '}';
    separator = ",\n";
  }
  out_ << "\n]";
}

void PlanJson::writeCards() {
  out_ << ",\n\"cards\":[";
  for (std::size_t i = 0; i < plan_.cards.size(); ++i) {
    const PlannedCard& card = plan_.cards[i];
    out_ << (i > 0 ? ",\n{" : "\n{");
    writeField("number", card.number);
    writeField("name", card.assetName);
    writeField("department", card.place.department);
    writeField("category", card.place.category);
    writeField("subject", card.place.subject);
    writeAmounts({plan_.amounts.data() + i * plan_.months, plan_.months});
    out_ << '}';
  }
  out_ << "\n]";
}

void PlanJson::write(const std::string& by) {
  out_ << '{';
  writeMonths();
  writeRemarks();
  out_ << "\"total\":{";
  writeAmounts(plan_.totals);
  out_ << '}';
  if (by.empty() || by == "department") writeGroups("departments", plan_.departments);
  if (by.empty() || by == "category") writeGroups("categories", plan_.categories);
  if (by.empty() || by == "subject") writeGroups("subjects", plan_.subjects);
  if (by == "card") writeCards();
  out_ << "}\n";
}

}  // namespace

void writePlanJson(const DeprPlan& plan, const std::string& by, std::ostream& out) {
  PlanJson(plan, out).write(by);
}

}  // namespace zelkor
