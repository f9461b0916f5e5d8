#pragma once

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <span>
#include <string>

#include "ui/Form.h"
#include "ui/SheetEditor.h"
#include "ui/SheetPaper.h"
#include "ui/Toolbar.h"

class QFrame;

namespace zelkor {

/// How a value of a sheet is to be placed.
enum class SheetValue { Text, Amount };

/// A screen that is one sheet: a voucher below a toolbar, filled in by a box that lies over its values.
class SheetForm : public Form {
 protected:
  /// `box` is the name of the text box.
  SheetForm(FormHost& host, const char* name, const char* box);

  /// A value of the sheet under its name as a control.
  QLabel* placeValue(const std::string& name, SheetValue kind = SheetValue::Text);
  /// The button that lies over the value and opens its picker.
  template <typename Routine>
  QPushButton* placeButton(QLabel* value, const std::string& name, Routine routine) {
    auto* button = make<QPushButton>(name.c_str(), "…");
    pickButtonOver(value, button);
    on(button, &QPushButton::clicked, routine);
    return button;
  }
  QFrame* arrangeSheet(const QString& kind, std::span<const SheetCell> head, std::span<const SheetCell> table,
                       std::span<const SheetCell> foot);

  Toolbar* tbToolBar = make<Toolbar>("tbToolBar");
  QLineEdit* box;
  SheetEditor* editor;
};

}  // namespace zelkor
