#include "transfer/jet/JetProblems.h"

namespace zelkor::jet {

void Problems::addValue(ToldOfTable& told, TransferProblem problem) {
  if (told.listed < kListedPerTable) {
    ++told.listed;
    all_.push_back(std::move(problem));
    return;
  }
  if (told.unlisted++ == 0) {
    told.countedAt = all_.size();
    all_.push_back({problem.table, 0, "", ""});
  }
  all_[told.countedAt].reason = "另有 " + std::to_string(told.unlisted) + " 个值有问题，未逐一列出";
}

}  // namespace zelkor::jet
