#pragma once

#include <string>
#include <vector>

#include "support/Widgets.h"
#include "vouchers/VoucherFixture.h"

namespace zelkor::test {

/// Staged events with a host for the screens of vouchers.
class VoucherFormTest : public VoucherTest {
 protected:
  int endStatus() const { return host.endStatus().value_or(-1); }

  static FlexGrid& gridOf(const QWidget& form, const char* name) { return control<FlexGrid>(form, name); }
  /// Rows below the header, cells joined by "|", hidden columns left out.
  static std::vector<std::string> body(const QWidget& form, const char* name) {
    const TextGrid& grid = gridOf(form, name).grid();
    std::vector<std::string> lines;
    for (std::size_t row = grid.headerRows(); row < grid.rows(); ++row) {
      std::string line;
      for (std::size_t column = 0; column < grid.columns(); ++column) {
        if (!grid.columnHidden(column)) line += grid.text(row, column) + "|";
      }
      line.pop_back();
      lines.push_back(line);
    }
    return lines;
  }
  static void clickCell(FlexGrid& grid, std::size_t row, std::size_t column) {
    grid.selectCell(row, column);
    emit grid.clicked(grid.cellIndex(row, column));
  }
  /// Types over what stands in the open cell editor and presses a key there.
  static void enter(FlexGrid& grid, const char* box, const QString& text, int key = Qt::Key_Return) {
    type(grid, box, text);
    sendKey(control<QLineEdit>(grid, box), key);
  }
  static bool editing(const FlexGrid& grid, const char* box) {
    return control<QLineEdit>(grid, box).isVisible();
  }
  /// Takes a subject in the picker that the next action opens.
  static void pickSubject(const QString& node) {
    inModalForm([node](QWidget& picker) {
      selectNode(picker, "TvCode", node);
      click(picker, "cmdOK");
    });
  }

  FormHost host{context, [](int) {}};
};

}  // namespace zelkor::test
