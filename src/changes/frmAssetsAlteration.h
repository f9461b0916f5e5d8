#pragma once

#include <QRegularExpressionValidator>
#include <string>
#include <vector>

#include "changes/ChangeSheets.h"
#include "changes/SheetPanels.h"
#include "ui/SheetForm.h"

namespace zelkor {

/// The change sheet of one kind. Its values stand on labels of the array Label1; those that are filled in are
/// covered by txtContent while they are, and have a button cmdMobile where there is something to pick.
class frmAssetsAlteration final : public SheetForm {
 public:
  frmAssetsAlteration(FormHost& host, ChangeKind kind);

 private:
  enum class Mode { Entering, Stored };
  struct Place {
    const SheetLabel* spec;
    QLabel* label;
  };

  void arrangeControls();
  std::vector<SheetCell> placeLabels(const std::vector<SheetLabel>& specs);
  void addEntry(const SheetLabel& spec, QLabel* label);
  SheetInput inputOf(const SheetLabel& spec);
  void enterMode(Mode mode);
  bool entering() const { return mode_ == Mode::Entering; }
  bool stored() const { return mode_ == Mode::Stored; }
  void showSheet();
  QLabel* firstOwnEntry() const;

  void txtContent_Commit(const QLabel* value, const QString& text);
  void cmdMobile_Click(const SheetLabel& spec, QLabel* label);
  void add();
  void save();
  void cancel();

  void loadTyped(QLabel* label, CardKey key, const std::string& number);
  bool pickCard();
  bool pickAfter();
  bool pickDepartments();
  bool tell(const SheetResult& result);

  QValidator* amount_ = new QRegularExpressionValidator(QRegularExpression("[-+]?([0-9]+[.]?[0-9]*)?"), this);
  QValidator* life_ = new QRegularExpressionValidator(
      QRegularExpression("([0-9]{1,3}([.][0-9]*)?)?年([0-9]{1,3}([.][0-9]*)?)?月"), this);
  ChangeSheets sheets_;
  const SheetPanel& panel_;
  std::vector<Place> places_;
  ChangeSheet sheet_;
  Mode mode_ = Mode::Stored;
  bool typedIsRefused_ = false;
};

}  // namespace zelkor
