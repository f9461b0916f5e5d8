#pragma once

#include <initializer_list>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTreeWidget>
#include <span>

#include "base/TreeRow.h"
#include "ui/Form.h"
#include "ui/Layout.h"
#include "ui/TreeSearch.h"
#include "ui/UpDown.h"

namespace zelkor {

/// Names by which a picker's controls are known.
struct TreePickerNames {
  const char* tree;
  const char* byCode;
  const char* byName;
  const char* search;
  const char* step;
  const char* take;
  const char* cancel;
};

/// A dialog that picks an entry of a tree, with a search by code or name that steps through the matches.
/// Enter in the search field goes to the first match, Enter on an entry takes it. A search that was begun
/// before the dialog was opened, or by a letter on the tree, takes its first match by Enter.
class TreePicker : public Form {
 public:
  /// By code where the text begins like one, otherwise by name.
  bool beginSearch(const QString& text) override;

 protected:
  TreePicker(FormHost& host, const char* name, const char* caption, const TreePickerNames& names);

  /// Arranges the controls above a row of buttons.
  void arrangeControls(std::initializer_list<layout::Item> buttons);
  /// Shows these entries instead; nothing is selected.
  void fill(std::span<const TreeRow> rows);
  /// Selects the entry whose tag is `tag` (a code), if it is there.
  void preselect(const QString& tag);
  /// The selected entry; nullptr when none is, or when it is a head, which has no tag.
  const QTreeWidgetItem* selectedEntry() const;
  /// Writes the text of the selected entry into the search field.
  void showSelected();

  /// The choice is to be taken: the button was pressed.
  virtual void take() = 0;
  /// The selected entry is to be taken: Enter or a double click on it.
  virtual void takeEntry() { take(); }
  /// The dialog is to be left without a choice.
  virtual void cancel() = 0;
  virtual void selectionChanged() {}
  /// Whether the dialog gives the entry back.
  virtual bool mayBeTaken(const QTreeWidgetItem& /*entry*/) const { return true; }

  QTreeWidget* const tree;
  QRadioButton* const byCode;
  QRadioButton* const byName;
  QLineEdit* const search;
  UpDown* const stepper;
  QPushButton* const takeButton;
  QPushButton* const cancelButton;

 private:
  bool eventFilter(QObject* control, QEvent* event) override;
  bool enterPressed(QObject* control) override;
  void escapePressed() override { cancel(); }
  void goToMatch(int direction);
  bool takeFirstMatch();
  TreeSearch sought() const;

  bool seeking_ = false;  // what is typed is to be found and taken
  QString searched_;      // what was typed; the field may show the selected entry instead
};

}  // namespace zelkor
