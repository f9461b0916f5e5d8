#include "screenshots/Stage.h"

#include <iostream>
#include <QApplication>
#include <QTreeWidgetItemIterator>
#include <stdexcept>

#include "startup/Main.h"

namespace zelkor {

Stage::Stage(const std::filesystem::path& set, std::filesystem::path pictures)
    : pictures_(std::move(pictures)), dialogs_(std::cin, std::cerr), context_(engine_, dialogs_, clock_) {
  prepareRun(context_, (set / "ZkData.Mdb").string() + ",陈会计,2020-05-15,4," +
                           (set / "ZkSystem.Mdb").string() + ",001");
}

void Stage::keep(QWidget& form, const std::string& name) {
  QApplication::processEvents();
  const auto file = pictures_ / (name + ".png");
  if (!form.grab().save(QString::fromStdString(file.string()))) {
    throw std::runtime_error("cannot write " + file.string());
  }
  std::cout << file.string() << " " << form.width() << "x" << form.height() << "\n";
}

void click(QWidget& form, const char* name) {
  form.findChild<QAbstractButton*>(name)->click();
}

void press(QWidget& form, const char* caption) {
  form.findChild<QAction*>(caption)->trigger();
}

void selectNode(QWidget& form, const QString& text) {
  auto* tree = form.findChild<QTreeWidget*>();
  for (QTreeWidgetItemIterator it(tree); *it; ++it) {
    if ((*it)->text(0) == text) tree->setCurrentItem(*it);
  }
}

}  // namespace zelkor
