#pragma once

#include <optional>
#include <string>

#include "base/Dialogs.h"
#include "base/RuntimeError.h"
#include "changes/DepartSplit.h"

namespace zelkor {

/// What is said of a card that is asked for and not there.
inline constexpr const char* kCardMissing = "当前卡片已不存在！";

/// A value of a sheet: what its label shows and what is beside it in the label's Tag.
struct ShownValue {
  std::string text;
  std::string tag;  // 使用状况调整: the sStatusID; 部门转移: department codes joined by "/"; else empty
};

/// The values of a change sheet as its panel shows them. A kind uses those that its panel has.
struct ChangeSheet {
  std::string number;  // five digits
  std::string date;    // "yyyy-mm-dd"
  std::string cardNum;
  std::string assetNum;
  std::string startDate;  // "yyyy-mm-dd"
  std::string assetName;
  std::string style;
  ShownValue before;
  ShownValue after;
  std::string reason;
  std::string operatorName;

  // 原值增加
  std::string increase;  // as typed
  std::string currency;
  std::string exchangeRate;
  std::string residualRate;  // "5%"; 净残值调整 too, as "5.00%"
  std::string residualIncrease;
  std::string residualBefore;
  std::string residualAfter;

  // 部门转移
  std::string siteBefore;
  std::string siteAfter;
  DepartSplit split;  // empty: the asset goes to one department

  /// Takes one department as the one after the transfer; an earlier split is dropped.
  void chooseDepartment(std::string code, std::string name);
  /// Takes the departments of a confirmed split.
  void chooseSplit(DepartSplit chosen);
  /// What leaving the box of the increase does: value after, residual value after and its increase. They are
  /// empty when the increase is no number; an empty increase counts as 0.
  void recomputeValues();
};

/// How a step on a sheet ended.
struct SheetResult {
  enum class Outcome {
    Done,
    Refused,  // a check or a missing card
    Failed,   // an error; the box has its description
    Nothing,  // 净残值调整 is not saved
  };
  Outcome outcome = Outcome::Done;
  std::optional<MessageBox> box;  // what the screen shows, if anything
  /// Of a save: all rows were written, so that the toolbar is as after a save, also when the commit or
  /// what follows it has failed.
  bool toolbarAsSaved = false;
  std::optional<RuntimeError> failure = {};  // of one that has failed

  bool done() const { return outcome == Outcome::Done; }
};

}  // namespace zelkor
