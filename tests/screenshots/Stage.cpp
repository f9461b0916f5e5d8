#include "screenshots/Stage.h"

#include <fstream>
#include <iostream>
#include <iterator>
#include <QApplication>
#include <utility>

#include "cards/CardImport.h"
#include "startup/Main.h"
#include "support/Paths.h"

namespace zelkor {

Stage::Stage(const std::filesystem::path& set, std::filesystem::path pictures)
    : pictures_(std::move(pictures)), dialogs_(std::cin, std::cerr), context_(engine_, dialogs_, clock_) {
  prepareRun(context_, (set / "ZkData.Mdb").string() + ",陈会计,2020-05-15,4," +
                           (set / "ZkSystem.Mdb").string() + ",001");
}

void Stage::enterRegister() {
  for (const char* table : {"fa_Cards", "fa_Cards_Detail", "fa_DeptScale", "fa_DeprTransactions",
                            "fa_DeprTransactions_Detail", "fa_WorkLoad"}) {
    data().Execute(std::string("delete from ") + table);
  }
  std::ifstream file(test::dataFolder() / "sample-register.csv", std::ios::binary);
  const std::string csv(std::istreambuf_iterator<char>(file), {});
  const DateTime opDate = std::exchange(context_.gdOpDate, *parseDate("2020-1-31"));
  importCards(context_, csv, 1, std::cerr);
  context_.gdOpDate = opDate;
}

void Stage::keep(QWidget& form, const std::string& name) {
  QApplication::processEvents();
  const auto file = pictures_ / (name + ".png");
  if (!form.grab().save(QString::fromStdString(file.string()))) {
    throw std::runtime_error("cannot write " + file.string());
  }
  std::cout << file.string() << " " << form.width() << "x" << form.height() << "\n";
}

}  // namespace zelkor
