#pragma once

#include <optional>
#include <QLabel>
#include <QPushButton>
#include <vector>

#include "home/AccountSetState.h"
#include "home/frmWorker.h"
#include "home/OpenedSet.h"
#include "ui/FlexGrid.h"
#include "ui/Form.h"

namespace zelkor {

/// The account sets that a person knows: opens one, makes one, brings one in from old files or a backup,
/// takes one into the list or out of it.
class FrmAccountSets final : public Form {
 public:
  /// The list is kept by who shows the form.
  FrmAccountSets(FormHost& host, AccountSetList& list);

  bool isScreen() const override { return true; }
  /// The set that was opened.
  const std::optional<OpenedSet>& opened() const { return opened_; }

 private:
  struct Row {
    KnownAccountSet set;
    std::optional<AccountSetState> state;  // once it is known
  };

  FlexGrid* GridSets = make<FlexGrid>("GridSets");
  QLabel* LblDetail = make<QLabel>("LblDetail");
  QPushButton* CmdOpen = make<QPushButton>("CmdOpen", "打开(&O)");
  QPushButton* CmdNew = make<QPushButton>("CmdNew", "新建账套(&N)…");
  QPushButton* CmdAdd = make<QPushButton>("CmdAdd", "加入已有的账套(&A)…");
  QPushButton* CmdJet = make<QPushButton>("CmdJet", "导入旧数据文件(&J)…");
  QPushButton* CmdRestore = make<QPushButton>("CmdRestore", "从备份恢复(&B)…");
  QPushButton* CmdRemove = make<QPushButton>("CmdRemove", "从列表移除(&R)");
  QPushButton* CmdExit = make<QPushButton>("CmdExit", "退出");

  void arrangeControls();
  void showSets();
  void look();
  void lookAtOne(frmWorker& worker, std::size_t index);
  void lookedAt(std::size_t index, const AccountSetState& state);
  std::size_t selected() const;
  void select(const KnownAccountSet& set);
  void showDetail();
  void open();
  void openSeen(const AccountSetState& state);
  void makeNew();
  void add();
  void addFrom(const std::string& folder);
  void importJet();
  void restore();
  std::string tool();
  void remove();
  bool remember(const KnownAccountSet& set);
  void tell(const std::string& text);

  AccountSetList& list_;
  std::vector<Row> rows_;              // as they are shown: the list itself may be ahead of them
  std::size_t shown_ = 0;              // which showing of the list they belong to
  std::optional<std::size_t> wanted_;  // the set that is opened once it is known
  std::optional<OpenedSet> opened_;
  frmWorker worker_{frmWorker::kBriefly};
  frmWorker opener_{frmWorker::kBriefly};  // for what does not wait behind the others
};

}  // namespace zelkor
