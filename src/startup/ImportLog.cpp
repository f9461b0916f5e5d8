#include "startup/ImportLog.h"

#include <utility>

#include "store/engine/Statement.h"

namespace zelkor {
namespace {

constexpr std::string_view kColon = "：";

}  // namespace

ImportLog::ImportLog(RunContext& context, std::string job) : context_(context), job_(std::move(job) + " ") {
  const DateTime date = context.gdOpDate;
  Recordset memos = context.dbZKData.OpenRecordset(sql("select mMemo from Fa_log where mMemo like '", job_,
                                                       "*' and year(dDate)=", date.year(),
                                                       " and month(dDate)=", date.month()));
  for (; !memos.Eof(); memos.MoveNext()) {
    const std::string memo = memos.Text("mMemo").substr(job_.size());
    const std::size_t colon = memo.find(kColon);
    if (colon != std::string::npos)
      saved_[memo.substr(colon + kColon.size())].push_back(memo.substr(0, colon));
  }
}

std::optional<std::string> ImportLog::take(const std::string& row) {
  const auto saved = saved_.find(row);
  if (saved == saved_.end() || saved->second.empty()) return std::nullopt;
  std::string earliest = std::move(saved->second.front());
  saved->second.pop_front();
  return earliest;
}

bool ImportLog::knows(const std::string& row) const {
  const auto saved = saved_.find(row);
  return saved != saved_.end() && !saved->second.empty();
}

void ImportLog::note(const std::string& row, const std::string& savedAs) {
  StatementGroup group(context_.dbZKData);
  note(group, row, savedAs);
  group.run();
}

// By a recordset: a row may hold quotes.
void ImportLog::note(StatementGroup& group, const std::string& row, const std::string& savedAs) {
  group.add("select * from Fa_log where 1=0", [&](Recordset& log) {
    log.AddNew();
    log.Collect("dDate", context_.gdOpDate);
    log.Collect("sOperater", context_.gstrUser);
    log.Collect("mMemo", job_ + savedAs + std::string(kColon) + row);
  });
}

}  // namespace zelkor
