#include "home/AccountSetState.h"

#include <array>
#include <filesystem>
#include <sstream>
#include <utility>

#include "base/RuntimeError.h"
#include "home/AccountTitle.h"
#include "startup/Arguments.h"
#include "startup/OnlyJob.h"
#include "startup/RunTypes.h"
#include "store/accountset/DbEngine.h"
#include "store/accountset/ServerAccountSet.h"
#include "store/engine/Statement.h"

namespace zelkor {
namespace {

namespace fs = std::filesystem;

std::string withoutLineBreaks(std::string text) {
  while (!text.empty() && text.back() == '\n') text.pop_back();
  return text;
}

void look(AccountSetState& state) {
  std::ostringstream notices;
  DbEngine engine(notices);
  Database data = engine.OpenDatabase(state.set.dataFile);
  Database system = engine.OpenDatabase(state.set.systemFile);
  if (AccountTitle header = accountTitle(system, state.set.account); !header.name.empty()) {
    state.set.name = std::move(header.name);
    state.set.unit = std::move(header.unit);
  }
  state.open = openPeriod(data, system, state.set.account);
  if (const auto holder = data.jobHolder()) {
    state.condition = AccountSetCondition::Busy;
    state.detail = sentenceAboutJob(holder);
  } else if (!notices.str().empty()) {
    state.condition = AccountSetCondition::Outdated;
    state.detail = withoutLineBreaks(notices.str());
  } else if (!IsAccountInitialised(data)) {
    state.condition = AccountSetCondition::NotInitialised;
    state.detail = "还没有走完初始化向导。";
  }
}

bool isMissing(const std::string& file) {
  std::error_code ignored;
  return !fs::exists(file, ignored);
}

}  // namespace

std::string_view captionOf(AccountSetCondition condition) {
  static constexpr std::array<std::string_view, 6> kCaptions = {"正常",   "未初始化", "被占用",
                                                                "需更新", "找不到",   "打不开"};
  return kCaptions.at(static_cast<std::size_t>(condition));
}

AccountSetState lookAt(const KnownAccountSet& set) {
  AccountSetState state{.set = set};
  try {
    state.server = serverOf(set.dataFile);
    look(state);
  } catch (const std::exception& error) {
    const bool missing = isMissing(set.dataFile) || isMissing(set.systemFile);
    state.condition = missing ? AccountSetCondition::Missing : AccountSetCondition::Unusable;
    state.detail = error.what();
  }
  return state;
}

std::vector<KnownAccountSet> accountSetsAt(const std::string& path) {
  const fs::path given = fs::absolute(path).lexically_normal();
  std::error_code ignored;
  const fs::path data = fs::is_directory(given, ignored) ? given / "ZkData.Mdb" : given;
  KnownAccountSet found;
  found.dataFile = data.string();
  found.systemFile = (data.parent_path() / "ZkSystem.Mdb").string();
  requireCarriable(found, "");
  std::ostringstream unsaid;  // the list says it
  DbEngine engine(unsaid);
  const Database opened = engine.OpenDatabase(found.dataFile);
  Database system = engine.OpenDatabase(found.systemFile);
  std::vector<KnownAccountSet> sets;
  Recordset rows =
      system.OpenRecordset("select cAcc_id,cAcc_Name,cUnitName from za_account order by cAcc_id");
  for (; !rows.Eof(); rows.MoveNext()) {
    found.account = rows.TextOrEmpty("cAcc_id");
    found.name = rows.TextOrEmpty("cAcc_Name");
    found.unit = rows.TextOrEmpty("cUnitName");
    sets.push_back(found);
  }
  return sets;
}

void requireCarriable(const KnownAccountSet& set, const std::string& user) {
  composeArguments({.dataFile = set.dataFile,
                    .user = user,
                    .date = DateTime(),
                    .systemFile = set.systemFile,
                    .account = set.account});
}

DateTime offeredDate(const std::optional<OpenPeriod>& open, DateTime today) {
  const auto first = open ? DateTime::fromParts(open->year, open->month, 1) : std::nullopt;
  return first ? DateAdd("d", -1, DateAdd("m", 1, *first)) : today.date();
}

std::string warningOf(DateTime date, const std::optional<OpenPeriod>& open, DateTime today) {
  const std::string month = monthText(date.year(), date.month());
  if (open && (open->year != date.year() || open->month != date.month())) {
    const bool closed = std::pair(date.year(), date.month()) < std::pair(open->year, open->month);
    return month + (closed ? "已经结账；" : "还没有轮到；") + openPeriodText(*open) + "。";
  }
  if (today.year() == date.year() && today.month() == date.month()) return {};
  return sql("电脑的日期是", today.year(), "年", today.month(), "月", today.day(), "日，不在", month,
             "：资产减少的日期取自电脑。");
}

}  // namespace zelkor
