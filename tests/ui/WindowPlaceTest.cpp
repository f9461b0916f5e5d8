#include <QWindow>

#include "support/Widgets.h"
#include "ui/Form.h"
#include "ui/Layout.h"
#include "ui/Toolbar.h"
#include "ui/WindowPlace.h"

namespace zelkor::test {
namespace {

class PlainForm final : public Form {
 public:
  explicit PlainForm(FormHost& host) : Form(host, "PlainForm", "", Unload::Plain) { resize(200, 100); }
};

class WindowPlaceTest : public FormTest {};

TEST_F(WindowPlaceTest, ADialogStandsOverTheMiddleOfItsScreen) {
  auto& screen = host.show<PlainForm>();
  screen.setGeometry(300, 200, 600, 400);
  inModalForm([&screen](QWidget& dialog) {
    EXPECT_EQ(dialog.windowHandle()->transientParent(), screen.windowHandle());
    EXPECT_FALSE(dialog.windowFlags() & Qt::WindowMinMaxButtonsHint);
    const QPoint off = dialog.geometry().center() - screen.geometry().center();
    EXPECT_LT(off.manhattanLength(), 10);
    dialog.close();
  });
  host.dispatch([this] {
    PlainForm dialog(host);
    host.showModal(dialog);
  });
}

TEST_F(WindowPlaceTest, WhatIsLargerThanTheScreenScrollsBelowItsToolbar) {
  QWidget form;
  auto* lines = new QVBoxLayout;
  const auto* over = new QLineEdit(&form);  // lies over the others
  for (int i = 0; i < 30; ++i) lines->addWidget(new QLineEdit);
  auto* toolbar = new Toolbar;
  layout::arrangeScreen(&form, toolbar, lines);
  auto* last = lines->itemAt(29)->widget();
  last->setFocus();
  fitInto(form, {300, 200});
  EXPECT_EQ(form.focusWidget(), last);
  form.show();
  EXPECT_EQ(form.height(), 200);
  EXPECT_EQ(toolbar->y(), 0);
  EXPECT_TRUE(last->visibleRegion().isEmpty());
  bringIntoView(*last);
  EXPECT_FALSE(last->visibleRegion().isEmpty());
  EXPECT_EQ(over->parentWidget(), last->parentWidget());
}

}  // namespace
}  // namespace zelkor::test
