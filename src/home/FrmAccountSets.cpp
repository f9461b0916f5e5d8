#include "home/FrmAccountSets.h"

#include <filesystem>
#include <QFileDialog>

#include "base/Format.h"
#include "base/LoginName.h"
#include "base/RuntimeError.h"
#include "home/AccountTitle.h"
#include "home/FrmImportJet.h"
#include "home/FrmLogin.h"
#include "home/FrmNewAccountSet.h"
#include "home/FrmRestore.h"
#include "store/engine/Statement.h"
#include "ui/Layout.h"

namespace zelkor {

using namespace layout;

namespace {

constexpr const char* kTitle = "固定资产工作台";
constexpr QSize kSize(1000, 520);
constexpr int kDetailHeight = 40;

namespace column_of {
enum : std::size_t { Name, Unit, Account, OpenMonth, State, LastUsed, User, Folder };
}

TextGrid emptyList() {
  TextGrid grid;
  grid.setHeader("账套名称|使用单位|账套号|未结账月份|状态|上次使用|操作员|位置");
  return grid;
}

std::string openMonthText(const AccountSetState& state) {
  constexpr int kLastMonth = 12;
  if (!state.open) return "";
  if (state.open->month > kLastMonth) return sql(state.open->year, "年已结账");
  return monthText(state.open->year, state.open->month);
}

/// How long ago something was, in words.
std::string usedText(const KnownAccountSet& set) {
  return set.user.empty() ? "还没有用过" : Format(set.lastUsed, "yyyy-mm-dd hh:nn");
}

std::string folderOf(const KnownAccountSet& set) {
  return std::filesystem::path(set.dataFile).parent_path().string();
}

}  // namespace

FrmAccountSets::FrmAccountSets(FormHost& host, AccountSetList& list)
    : Form(host, "FrmAccountSets", "固定资产工作台　账套", Unload::Plain), list_(list) {
  arrangeControls();
  on(GridSets, &FlexGrid::rowSelected, &FrmAccountSets::showDetail);
  on(GridSets, &FlexGrid::rowOpened, &FrmAccountSets::open);
  on(CmdOpen, &QPushButton::clicked, &FrmAccountSets::open);
  for (QPushButton* other : {CmdNew, CmdAdd, CmdJet, CmdRestore, CmdRemove})
    on(other, &QPushButton::clicked, [this] { wanted_.reset(); });  // first of all
  on(CmdNew, &QPushButton::clicked, &FrmAccountSets::makeNew);
  on(CmdAdd, &QPushButton::clicked, &FrmAccountSets::add);
  on(CmdJet, &QPushButton::clicked, &FrmAccountSets::importJet);
  on(CmdRestore, &QPushButton::clicked, &FrmAccountSets::restore);
  on(CmdRemove, &QPushButton::clicked, &FrmAccountSets::remove);
  on(CmdExit, &QPushButton::clicked, [this] { close(); });
  showSets();
}

void FrmAccountSets::arrangeControls() {
  GridSets->fitColumns();
  GridSets->setGrid(emptyList());
  GridSets->fillWith(column_of::Folder);
  LblDetail->setWordWrap(true);
  LblDetail->setMinimumHeight(kDetailHeight);
  LblDetail->setTextInteractionFlags(Qt::TextSelectableByMouse);
  arrange(
      this,
      column({wide(GridSets), LblDetail,
              row({CmdOpen, space(12), CmdNew, CmdAdd, CmdJet, CmdRestore, CmdRemove, stretch(), CmdExit})}));
  resize(kSize);
}

void FrmAccountSets::showSets() {
  rows_.clear();
  wanted_.reset();
  ++shown_;
  TextGrid grid = emptyList();
  for (const KnownAccountSet& set : list_.sets()) {
    grid.addRow({set.name, set.unit, set.account, "", "…", usedText(set), set.user, folderOf(set)});
    rows_.push_back({set, {}});
  }
  GridSets->setGrid(std::move(grid));
  if (!rows_.empty()) GridSets->selectGridRow(1);
  setDefaultButton(rows_.empty() ? CmdNew : CmdOpen);
  look();
  showDetail();
}

// Each on its own: one on a server that does not answer must not hold up the others for longer than itself.
void FrmAccountSets::look() {
  for (std::size_t i = 0; i < rows_.size(); ++i) lookAtOne(worker_, i);
}

void FrmAccountSets::lookAtOne(frmWorker& worker, std::size_t index) {
  worker.start([this, index, shown = shown_, set = rows_[index].set] {
    return [this, index, shown, state = lookAt(set)] {
      host().dispatch([&] {
        if (shown == shown_ && !opened_) lookedAt(index, state);
      });
    };
  });
}

void FrmAccountSets::lookedAt(std::size_t index, const AccountSetState& state) {
  rows_.at(index).state = state;
  GridSets->setText(index + 1, column_of::Name, state.set.name);
  GridSets->setText(index + 1, column_of::Unit, state.set.unit);
  GridSets->setText(index + 1, column_of::OpenMonth, openMonthText(state));
  GridSets->setText(index + 1, column_of::State, std::string(captionOf(state.condition)));
  if (!state.server.empty())
    GridSets->setText(index + 1, column_of::Folder, folderOf(state.set) + "　服务器 " + state.server);
  GridSets->fitColumns();
  const bool opens = wanted_ == index;
  showDetail();
  if (opens) open();
}

/// The index of the current set; that behind the last one where there is none.
std::size_t FrmAccountSets::selected() const {
  const auto row = GridSets->currentGridRow();
  return row && *row > 0 && *row <= rows_.size() ? *row - 1 : rows_.size();
}

void FrmAccountSets::select(const KnownAccountSet& set) {
  for (std::size_t i = 0; i < rows_.size(); ++i)
    if (rows_[i].set.isSame(set)) GridSets->selectGridRow(i + 1);
}

void FrmAccountSets::showDetail() {
  const std::size_t index = selected();
  const bool chosen = index < rows_.size();
  const auto state = chosen ? rows_[index].state : std::nullopt;
  if (wanted_ != index || state) wanted_.reset();
  CmdRemove->setEnabled(chosen);
  CmdOpen->setEnabled(chosen && (!state || state->canBeOpened()));
  if (rows_.empty()) {
    LblDetail->setText(
        "列表里还没有账套。“新建账套”建一个新的，“加入已有的账套”指明账套所在的文件夹；旧系统的数据和以前的备"
        "份"
        "也可以在这里导入、恢复。");
  } else if (list_.unreadable() > 0) {
    LblDetail->setText(toQt(sql("账套列表的文件有 ", list_.unreadable(),
                                " 行读不出来，已略去；下次保存时原文件另存为 .damaged。")));
  } else if (wanted_) {
    LblDetail->setText("正在查看这个账套，随后打开…");
  } else {
    LblDetail->setText(state ? toQt(state->detail) : QString());
  }
}

void FrmAccountSets::open() {
  const std::size_t index = selected();
  if (index >= rows_.size()) return;
  if (const auto state = rows_[index].state) return openSeen(*state);
  if (wanted_ == index) return;
  wanted_ = index;
  lookAtOne(opener_, index);
  showDetail();
}

void FrmAccountSets::openSeen(const AccountSetState& state) {
  if (!state.canBeOpened()) return tell(state.detail);
  const DateTime now = run().clock.now();
  const std::string user = state.set.user.empty() ? loginName() : state.set.user;
  auto agreed = askLogin(host(), {state.set, user, offeredDate(state.open, now)}, state.open);
  if (!agreed) return;
  agreed->set.user = agreed->user;
  agreed->set.lastUsed = now;
  remember(agreed->set);
  opened_ = std::move(agreed);
  close();
}

void FrmAccountSets::makeNew() {
  FrmNewAccountSet form(host());
  host().showModal(form);
  if (!form.made()) return;
  KnownAccountSet made = *form.made();
  made.lastUsed = run().clock.now();
  remember(made);
  showSets();
  select(made);
}

void FrmAccountSets::add() {
  const QString folder = QFileDialog::getExistingDirectory(this, "账套所在的文件夹");
  if (!folder.isEmpty()) addFrom(fromQt(folder));
}

void FrmAccountSets::addFrom(const std::string& folder) {
  try {
    const std::vector<KnownAccountSet> found = accountSetsAt(folder);
    if (found.empty()) return tell("系统文件中没有账套。");
    for (KnownAccountSet set : found) {
      for (const KnownAccountSet& known : list_.sets())
        if (known.isSame(set)) set.user = known.user;
      set.lastUsed = run().clock.now();
      remember(set);
    }
    showSets();
    select(found.front());
  } catch (const RuntimeError& error) {
    tell(error.what());
  }
}

/// The program that brings account sets from place to place.
std::string FrmAccountSets::tool() {
  return run().programFolder + "/zelkorctl";
}

void FrmAccountSets::importJet() {
  FrmImportJet form(host(), tool());
  host().showModal(form);
  if (!form.made().empty()) addFrom(form.made());
}

void FrmAccountSets::restore() {
  const std::size_t index = selected();
  FrmRestore form(host(), index < rows_.size() ? folderOf(rows_[index].set) : std::string(), tool());
  host().showModal(form);
  if (!form.restored().empty()) addFrom(form.restored());
}

void FrmAccountSets::remove() {
  const std::size_t index = selected();
  if (index >= rows_.size()) return;
  const KnownAccountSet set = rows_[index].set;
  if (run().dialogs.MsgBox("从列表移除“" + set.name + "”？账套的文件不会删除。", Buttons::YesNo,
                           Icon::Question, kTitle) != Answer::Yes)
    return;
  try {
    list_.forget(set);
  } catch (const RuntimeError& error) {
    tell(error.what());
  }
  showSets();
}

/// The list can also be used where it cannot be kept.
bool FrmAccountSets::remember(const KnownAccountSet& set) {
  try {
    list_.remember(set);
    return true;
  } catch (const RuntimeError& error) {
    tell(std::string("账套列表没有保存：") + error.what());
    return false;
  }
}

void FrmAccountSets::tell(const std::string& text) {
  run().dialogs.MsgBox(text, Buttons::Ok, Icon::Exclamation, kTitle);
}

}  // namespace zelkor
