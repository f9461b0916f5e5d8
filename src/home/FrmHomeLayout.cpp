#include <iterator>
#include <QCompleter>
#include <QGridLayout>
#include <QStringListModel>

#include "home/FrmHome.h"
#include "home/frmStepMark.h"
#include "startup/RunTypes.h"
#include "store/engine/Statement.h"
#include "ui/Layout.h"

namespace zelkor {

using namespace layout;

namespace {

constexpr QSize kSize(1100, 680);
constexpr int kStepsWidth = 640;  // as in a window of its size: in a narrower one texts would take more lines
constexpr int kCommandWidth = 190;
constexpr int kStepHeight = 31;
constexpr int kCaptionWidth = 112;
constexpr int kLastWidth = 76;
constexpr int kButtonWidth = 152;
constexpr int kMarkSize = 22;
constexpr std::array<const char*, FrmHome::kFigures> kFigureCaptions{"原值", "累计折旧", "净值", "本月折旧"};

constexpr std::string_view kGroupKeys = "ARCBPT";  // with Alt, one for each RunGroup

enum StepColumn { Mark, Caption, Counts, Last, Button, More };

/// The keys along the row of digits.
QKeySequence stepKey(std::size_t index) {
  constexpr Qt::Key kKeys[] = {Qt::Key_1, Qt::Key_2, Qt::Key_3, Qt::Key_4, Qt::Key_5,    Qt::Key_6,
                               Qt::Key_7, Qt::Key_8, Qt::Key_9, Qt::Key_0, Qt::Key_Minus};
  static_assert(std::size(kKeys) == FrmHome::kSteps);
  return QKeySequence(Qt::CTRL | kKeys[index]);
}

QFrame* card() {
  auto* frame = new QFrame;
  frame->setProperty("sheet", "paper");
  return frame;
}

}  // namespace

void FrmHome::arrangeControls() {
  LblHeadline->setWordWrap(true);
  LblStatus->setWordWrap(true);
  LblStatus->setTextInteractionFlags(Qt::TextSelectableByMouse);
  CmdDetail->hide();
  ChartDepartments->setTitle("本月折旧，按部门");
  ChartDepartments->setEmptyText("本月还没有计提");
  ChartCategories->setTitle("净值，按类别");
  ChartCategories->setEmptyText("还没有卡片");
  ChartMonths->setTitle("本年各月折旧");
  ChartMonths->setEmptyText("还没有计提");
  auto* steps = card();
  arrange(steps, stepLines());
  steps->setMinimumWidth(kStepsWidth);
  TabsRecent->setMinimumWidth(kStepsWidth);
  arrangeRecent();
  auto* right = column({figureTiles(), wide(ChartDepartments), wide(ChartCategories)});
  auto* month = row({Item(steps, 3), Item(right, 2)});
  auto* recent = row({Item(TabsRecent, 3), Item(ChartMonths, 2)});
  arrange(this, column({head(), row({wide(LblHeadline), CmdNext}), Item(month, 3), Item(recent, 1), rule(),
                        row({wide(LblStatus), CmdDetail})}));
  makeMenus();
  makeFinder();
  layout()->setMenuBar(menu_);
  setDefaultButton(CmdNext);
  resize(kSize);
}

QLayout* FrmHome::head() {
  LblSet->setProperty("title", true);
  LblUnit->setProperty("note", true);
  TxtCommand->setPlaceholderText("查找命令　Ctrl+K");
  TxtCommand->setFixedWidth(kCommandWidth);
  TxtCommand->setAccessibleName("查找命令");
  return row({LblSet, space(8), LblUnit, stretch(), CmdLogin, TxtCommand});
}

QLayout* FrmHome::stepLines() {
  auto* grid = new QGridLayout;
  grid->setContentsMargins(4, 2, 4, 2);
  grid->setHorizontalSpacing(8);
  grid->setVerticalSpacing(0);
  grid->setColumnStretch(Counts, 1);
  grid->setRowStretch(static_cast<int>(kSteps), 1);  // what is left lies below them
  for (std::size_t i = 0; i < kSteps; ++i) {
    const int line = static_cast<int>(i);
    LblMark[i]->setFixedSize(kMarkSize, kMarkSize);
    LblStep[i]->setFixedWidth(kCaptionWidth);
    LblStep[i]->setText(toQt(captionOf(static_cast<StepKind>(i))));
    grid->setRowMinimumHeight(line, kStepHeight);
    LblLast[i]->setFixedWidth(kLastWidth);
    LblLast[i]->setProperty("note", true);
    CmdStep[i]->setFixedWidth(kButtonWidth);
    CmdStep[i]->setToolTip(stepKey(i).toString());
    CmdMore[i]->setPopupMode(QToolButton::InstantPopup);
    CmdMore[i]->setText("⋯");
    CmdMore[i]->setFocusPolicy(Qt::StrongFocus);
    CmdMore[i]->setAccessibleName(LblStep[i]->text() + "的其他命令");
    CmdMore[i]->setToolTip("其他命令");
    CmdMore[i]->setStyleSheet("QToolButton::menu-indicator { image: none; }");
    grid->addWidget(LblMark[i], line, Mark);
    grid->addWidget(LblStep[i], line, Caption);
    grid->addWidget(LblCounts[i], line, Counts);
    grid->addWidget(LblLast[i], line, Last);
    grid->addWidget(CmdStep[i], line, Button);
    grid->addWidget(CmdMore[i], line, More);
  }
  return grid;
}

QLayout* FrmHome::figureTiles() {
  auto* tiles = new QGridLayout;
  tiles->setSpacing(6);
  for (std::size_t i = 0; i < kFigures; ++i) {
    auto* tile = card();
    auto* caption = new QLabel(kFigureCaptions[i]);
    caption->setProperty("note", true);
    LblFigure[i]->setStyleSheet("font-size: 17px; font-weight: bold; border: none;");
    LblFigure[i]->setAccessibleName(kFigureCaptions[i]);
    arrange(tile, column({caption, LblFigure[i]}));
    tile->layout()->setContentsMargins(10, 4, 10, 6);
    tile->layout()->setSpacing(0);
    tiles->addWidget(tile, static_cast<int>(i / 2), static_cast<int>(i % 2));
  }
  LblCards->setProperty("note", true);
  auto* all = column({});
  all->addLayout(tiles);
  CmdPlan->setAutoDefault(false);
  all->addLayout(row({LblCards, stretch(), CmdPlan}));
  return all;
}

void FrmHome::arrangeRecent() {
  constexpr int kListHeight = 84;  // the headings and two rows
  for (FlexGrid* grid : {GridCards, GridVouchers, GridReports}) {
    grid->fitColumns();
    grid->fillWith(1);
    grid->setMinimumHeight(kListHeight);
  }
  GridCards->setAccessibleName("最近的卡片");
  GridVouchers->setAccessibleName("最近的凭证");
  GridReports->setAccessibleName("最近的报表");
  fillTabs(*TabsRecent, {{"最近的卡片", column({wide(GridCards)})},
                         {"最近的凭证", column({wide(GridVouchers)})},
                         {"最近的报表", column({wide(GridReports)})}});
  for (int page = 0; page < TabsRecent->count(); ++page)
    TabsRecent->widget(page)->layout()->setContentsMargins(4, 4, 4, 4);
  // Beside the captions, where they take no height.
  auto* buttons = page(row({CmdReport, CmdPdf, CmdWorkbook}));
  buttons->layout()->setContentsMargins(0, 0, 0, 2);
  for (QPushButton* button : {CmdReport, CmdPdf, CmdWorkbook})
    button->setStyleSheet("padding: 1px 12px; min-height: 0;");
  TabsRecent->setCornerWidget(buttons);
  const auto showButtons = [this, buttons] {
    buttons->setVisible(TabsRecent->currentWidget()->isAncestorOf(GridReports));
  };
  on(TabsRecent, &QTabWidget::currentChanged, showButtons);
  showButtons();
}

void FrmHome::makeMenus() {
  QMenu* file = menu_->addMenu("文件(&F)");
  addCommands(file, {{"打开账套…", &FrmHome::openOther, &FrmHome::canStart, QKeySequence("Ctrl+O")},
                     {"操作员与操作日期…", &FrmHome::changeLogin, &FrmHome::canStart, QKeySequence("Ctrl+D")},
                     {"刷新", &FrmHome::read, nullptr, QKeySequence("F5")},
                     {},
                     {"退出", [this] { close(); }, nullptr, QKeySequence("Ctrl+W")}});
  makeStepsMenu();
  for (const RunGroup group : runGroups()) {
    const char key = kGroupKeys.at(static_cast<std::size_t>(group));
    QMenu* menu = menu_->addMenu(toQt(sql(captionOf(group), "(&", std::string(1, key), ")")));
    std::vector<Command> commands;
    for (const StepCommand& command : allCommands()) {
      if (groupOf(command) != group) continue;
      const std::string caption(captionOf(command));
      commands.emplace_back(
          caption.c_str(), [this, command] { start(command); },
          [this, command] { return mayStart(command); });
    }
    addCommands(menu, commands);
  }
  QMenu* help = menu_->addMenu("帮助(&H)");
  addCommands(help, {{"使用手册", &FrmHome::openGuide, nullptr, QKeySequence("F1")}});
}

void FrmHome::makeStepsMenu() {
  QMenu* menu = menu_->addMenu("本月(&M)");
  std::vector<Command> commands;
  for (std::size_t i = 0; i < kSteps; ++i) {
    const std::string caption(captionOf(static_cast<StepKind>(i)));
    commands.emplace_back(
        CommandCaption(caption.c_str(), ("step " + caption).c_str()), [this, i] { startStep(i); },
        &FrmHome::canStart, stepKey(i));
  }
  addCommands(menu, commands);
}

void FrmHome::makeFinder() {
  QStringList captions;
  for (const StepCommand& command : allCommands()) captions << toQt(captionOf(command));
  auto* completer = new QCompleter(captions, TxtCommand);
  completer->setFilterMode(Qt::MatchContains);
  completer->setCaseSensitivity(Qt::CaseInsensitive);
  TxtCommand->setCompleter(completer);
  auto* find = new QAction("查找命令", this);
  find->setShortcut(QKeySequence("Ctrl+K"));
  addAction(find);
  on(find, &QAction::triggered, [this] {
    TxtCommand->setFocus();
    TxtCommand->selectAll();
  });
}

}  // namespace zelkor
