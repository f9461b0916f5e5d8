#include <QMenu>

#include "base/Format.h"
#include "home/FrmHome.h"
#include "home/frmStepMark.h"
#include "store/engine/Statement.h"

// Where the month stands, and what the assets come to.
namespace zelkor {
namespace {

QString amountText(double amount) {
  return toQt(Format(amount, "#,##0.00"));
}

std::vector<frmChart::Point> pointsOf(const std::vector<NamedAmount>& amounts) {
  std::vector<frmChart::Point> points;
  for (const NamedAmount& one : amounts) points.push_back({toQt(one.name), one.amount});
  return points;
}

std::vector<frmChart::Point> pointsOf(const std::array<std::optional<double>, BookFigures::kMonths>& months) {
  std::vector<frmChart::Point> points;
  for (std::size_t i = 0; i < months.size(); ++i) points.push_back({QString::number(i + 1), months[i]});
  return points;
}

}  // namespace

void FrmHome::showMonth() {
  const MonthState* month = reading_ ? &reading_->month : nullptr;
  if (!trouble_.empty()) {
    LblHeadline->setText(toQt("⚠ 账套现在读不出来：" + firstSentence(trouble_) + " 按 F5 再试。"));
  } else {
    LblHeadline->setText(month ? toQt(month->headline) : QString("正在读取…"));
  }
  LblHeadline->setStyleSheet(trouble_.empty() ? "font-size: 15px; font-weight: bold;"
                                              : "font-size: 15px; font-weight: bold; color: #b23b3b;");
  for (std::size_t i = 0; month && i < kSteps; ++i) showStep(i, month->steps[i], month->next == i);
  lockCommands();
}

void FrmHome::showStep(std::size_t index, const MonthStep& step, bool isNext) {
  LblMark[index]->setPixmap(stepMark(step.state, static_cast<int>(index + 1)));
  LblMark[index]->setToolTip(toQt(captionOf(step.state)));
  LblMark[index]->setAccessibleName(toQt(captionOf(step.state)));
  QFont font = LblStep[index]->font();
  font.setBold(isNext);
  LblStep[index]->setFont(font);
  QString text = toQt(step.counts).toHtmlEscaped();
  if (!step.note.empty()) {
    const bool alarming = step.state == StepState::Attention || step.state == StepState::Open;
    const QString note = QString("<span style='color:%1'>%2</span>")
                             .arg(alarming ? "#9a5b00" : "#5b6773", toQt(step.note).toHtmlEscaped());
    text += text.isEmpty() ? note : "<br>" + note;
  }
  LblCounts[index]->show(text);
  LblLast[index]->setText(step.last ? toQt(Format(*step.last, "yyyy-mm-dd")) : QString());
  CmdStep[index]->setText(toQt(captionOf(step.commands.front())));
  showMore(index, step);
}

/// The step's other commands. A menu that is looked at stays as it is.
void FrmHome::showMore(std::size_t index, const MonthStep& step) {
  if (const QMenu* shown = CmdMore[index]->menu(); shown != nullptr && shown->isVisible()) return;
  auto* menu = new QMenu(CmdMore[index]);
  std::vector<Command> others;
  for (std::size_t i = 1; i < step.commands.size(); ++i) {
    const std::string caption(captionOf(step.commands[i]));
    others.emplace_back(CommandCaption(caption.c_str(), ("more " + caption).c_str()),
                        [this, command = step.commands[i]] { start(command); });
  }
  for (const Command& other : others) {
    QAction* entry = menu->addAction(other.text());
    entry->setObjectName(other.name());
    on(entry, &QAction::triggered, [this, other] { other.run(*this); });
  }
  delete CmdMore[index]->menu();
  CmdMore[index]->setMenu(menu);
  CmdMore[index]->setVisible(!others.empty());
}

void FrmHome::showFigures(const BookFigures& figures) {
  const std::array<double, kFigures> amounts{figures.value, figures.accumulated, figures.netValue(),
                                             figures.depreciation};
  for (std::size_t i = 0; i < kFigures; ++i) LblFigure[i]->setText(amountText(amounts[i]));
  LblCards->setText(toQt(sql("在用 ", figures.cardsInUse, " 张，已减少 ", figures.cardsDisposed, " 张")));
  ChartDepartments->show(frmChart::Kind::Bars, pointsOf(figures.depreciationByDepartment));
  ChartCategories->show(frmChart::Kind::Bars, pointsOf(figures.netValueByCategory));
  ChartMonths->show(frmChart::Kind::Line, pointsOf(figures.depreciationByMonth));
}

/// Nothing of what was seen of other books stays in sight.
void FrmHome::showNothing() {
  for (std::size_t i = 0; i < kSteps; ++i) {
    LblMark[i]->clear();
    LblMark[i]->setToolTip("");
    LblMark[i]->setAccessibleName("");
    LblCounts[i]->show("");
    LblLast[i]->clear();
  }
  for (QLabel* figure : LblFigure) figure->clear();
  LblCards->clear();
  for (frmChart* chart : {ChartDepartments, ChartCategories, ChartMonths}) chart->forget();
  showRecent({});
}

}  // namespace zelkor
