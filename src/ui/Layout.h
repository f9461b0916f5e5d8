#pragma once

#include <initializer_list>
#include <QBoxLayout>
#include <QGroupBox>
#include <QString>
#include <vector>

class QGridLayout;
class QTabWidget;
class QWidget;

/// Layout as one nested expression:
///
///   column({fields({{"编码(&C)：", TxtBM}, {"名称(&N)：", TxtMC}}), stretch(),
///           row({stretch(), CmdYes, CmdCancel})})
///
/// What is returned belongs to the layout or widget that takes it in, the outermost to the widget that it is
/// set on with `arrange`.
namespace zelkor::layout {

/// A control, a layout within the layout, or empty space.
class Item {
 public:
  // NOLINTBEGIN(google-explicit-constructor): items appear bare in the expression
  Item(QWidget* widget, int stretch = 0) : widget_(widget), stretch_(stretch) {}
  Item(QLayout* inner, int stretch = 0) : layout_(inner), stretch_(stretch) {}
  // NOLINTEND(google-explicit-constructor)

  void addTo(QBoxLayout& box) const;
  void addTo(QGridLayout& grid, int row, int column) const;
  /// The widget that a caption before the item leads to.
  QWidget* buddy() const;

 private:
  friend Item stretch(int factor);
  friend Item space(int pixels);
  Item() = default;

  QWidget* widget_ = nullptr;
  QLayout* layout_ = nullptr;
  int stretch_ = 0;
  int pixels_ = 0;
};

Item stretch(int factor = 1);
Item space(int pixels);
/// An item that takes the space that is left.
Item wide(QWidget* widget);
Item wide(QLayout* inner);

QBoxLayout* row(std::initializer_list<Item> items);
QBoxLayout* column(std::initializer_list<Item> items);

struct Field {
  const char* caption = "";  // "&" before the key that leads to the field
  Item item;
  const char* name = "";  // of the caption as a control, where it has one
};
/// Captions and fields below each other, aligned, in as many pairs of columns as asked for.
QLayout* fields(const std::vector<Field>& list, int columns = 1);
/// A caption before a field, which is its buddy.
QBoxLayout* captioned(const char* caption, const Item& item);

/// A titled frame around a layout; `name` is its name as a control, where it has one.
QGroupBox* frame(const char* title, QLayout* inner, const char* name = "");
/// A plain widget with that layout.
QWidget* page(QLayout* inner);
/// A text that wraps.
QWidget* note(const QString& text);
/// A thin horizontal line.
QWidget* rule();

struct Tab {
  const char* title;
  QLayout* inner;
};
void fillTabs(QTabWidget& tabs, std::initializer_list<Tab> list);

/// Two panes with a handle between them, each with its width at first; what is left goes to the right one.
QWidget* panes(QWidget* left, int leftWidth, QWidget* right, int rightWidth);

void arrange(QWidget* widget, QLayout* outermost);
/// A screen: its toolbar across the whole width, the body below.
void arrangeScreen(QWidget* screen, QWidget* toolbar, QLayout* body);

}  // namespace zelkor::layout
