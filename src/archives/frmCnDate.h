#pragma once

#include <array>
#include <optional>
#include <QLabel>
#include <QPushButton>

#include "ui/clsDate.h"
#include "ui/Form.h"

namespace zelkor {

/// Asks for a date by a month calendar.
class frmCnDate final : public Form {
 public:
  explicit frmCnDate(FormHost& host);

  /// The date that is shown at first.
  void SetCurDate(DateTime date);
  DateTime CurDate() const { return calendar_.GetCalendarDate(); }
  /// How the form was left: false after "确定", true otherwise. The caller then keeps its date.
  bool gbCnDateCancel() const { return gbCnDateCancel_; }
  bool beginSearch(const QString& text) override;

 private:
  std::array<QLabel*, 2> Label1 = makeArray<QLabel, 2>("Label1");
  QPushButton* cmdOk = make<QPushButton>("cmdOk", "确定");
  QPushButton* cmdExit = make<QPushButton>("cmdExit", "取消");

  void showDate();
  void cmdOk_Click();
  void cmdExit_Click();
  void escapePressed() override { cmdExit_Click(); }

  clsDate calendar_;
  bool gbCnDateCancel_ = true;
};

/// Lets a person choose a date, `current` at first; nothing when the form was left by "取消".
std::optional<DateTime> askForDate(FormHost& host, DateTime current);

}  // namespace zelkor
