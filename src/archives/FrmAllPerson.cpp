#include "archives/FrmAllPerson.h"

#include <QHeaderView>

#include "archives/DepartArchive.h"
#include "ui/Layout.h"

namespace zelkor {

using namespace layout;

FrmAllPerson::FrmAllPerson(FormHost& host) : Form(host, "FrmAllPerson", "职员", Unload::Plain) {
  arrange(this, column({findBar_, wide(GridPerson), row({stretch(), CmdOK, CmdCancel})}));
  GridPerson->horizontalHeader()->setStretchLastSection(true);
  resize(460, 400);
  on(GridPerson, &FlexGrid::rowSelected, &FrmAllPerson::GridPerson_RowColChange);
  on(GridPerson, &FlexGrid::rowOpened, [this](std::size_t row) {
    GridPerson_RowColChange(row);
    close();
  });
  on(CmdOK, &QPushButton::clicked, [this] { close(); });
  on(CmdCancel, &QPushButton::clicked, &FrmAllPerson::CmdCancel_Click);
}

void FrmAllPerson::setAllPerson(const Recordset& persons) {
  GridPerson->setGrid(personGrid(persons));
  GridPerson->fitColumns();
}

std::string FrmAllPerson::searchedText(std::size_t row) const {
  const TextGrid& persons = GridPerson->grid();
  std::string text;
  for (std::size_t column = 0; column < persons.columns(); ++column) text += persons.text(row, column) + " ";
  return text;
}

void FrmAllPerson::GridPerson_RowColChange(std::size_t row) {
  ClsPerson person;
  person.setCode(GridPerson->grid().text(row, 0));
  person.setName(GridPerson->grid().text(row, 1));
  selectPerson_ = person;
}

void FrmAllPerson::CmdCancel_Click() {
  selectPerson_.reset();
  close();
}

}  // namespace zelkor
