#pragma once

#include <array>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTreeWidget>
#include <string>

#include "archives/ClsBLLDepart.h"
#include "ui/Form.h"
#include "ui/Toolbar.h"

namespace zelkor {

/// Keeps the suite's department archive.
class FrmDepartment final : public Form {
 public:
  explicit FrmDepartment(FormHost& host);
  bool isScreen() const override { return true; }

 private:
  enum Field : std::size_t { Code, Name, Person, Property, Phone, Address, Memo, Fields };

  Toolbar* Toolbar1 = make<Toolbar>("Toolbar1");
  QTreeWidget* TvLeft = make<QTreeWidget>("TvLeft");
  QLabel* LblState = make<QLabel>("LblState");
  QLabel* LblCodeSet = make<QLabel>("LblCodeSet");
  std::array<QLineEdit*, Fields> TxtEdit = makeArray<QLineEdit, Fields>("TxtEdit");
  QPushButton* CmdFindPerson = make<QPushButton>("CmdFindPerson", "…");

  void arrangeControls();
  void arrangeCommands();
  void connectEvents();
  void Form_Unload() override { departs_.CloseZkData(); }

  void reload();
  void show(const std::string& code);
  void fill(const DepartRecord& depart);
  void unlock(bool unlocked);
  bool onStoredOne() const;
  std::string selectedCode() const;
  DepartRecord entered() const;

  void TvLeft_NodeClick();
  void TxtEdit_Change();
  void CmdFindPerson_Click();
  void add();
  void edit();
  void restore();
  void refresh();
  void remove();
  void save();
  void UpdateTvLeft(const DepartRecord& depart);

  ClsBLLDepart departs_;
  std::string pattern_;  // the coding rule
  std::string person_;   // code of the person in charge, whose name the field shows
  bool adding_ = false;
  bool unlocked_ = false;
  bool dirty_ = false;    // there is something to save
  bool filling_ = false;  // the fields change without anybody typing
};

}  // namespace zelkor
