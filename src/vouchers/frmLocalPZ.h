#pragma once

#include <cstddef>
#include <QDateEdit>
#include <QFrame>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QValidator>

#include "ui/CellEditor.h"
#include "ui/FlexGrid.h"
#include "ui/FormHost.h"
#include "vouchers/frmVoucherTotals.h"
#include "vouchers/Voucher.h"
#include "vouchers/VoucherGrid.h"

namespace zelkor {

/// The voucher editor: a voucher on its paper, written by keys alone if one likes. Its own members are those
/// of the voucher; who changes them from outside calls `showVoucher` afterwards. It refuses nothing of
/// itself: a voucher that does not balance is red.
///
/// Keys in the table: Enter and Tab lead through the cells of a line, F2 opens a cell and then its look-up,
/// "=" makes the voucher balance in the cell, the space bar takes the amount to the other side, Insert puts a
/// line in, Ctrl+Delete takes one out.
class LocalPZ final : public QFrame, public Voucher {
  Q_OBJECT

 public:
  LocalPZ(FormHost& host, QWidget* parent);

  /// Shows the voucher as it is; what was being typed is given up.
  void showVoucher();
  /// Ends what is being typed as if the cell had been left.
  void endTyping();
  /// Leads to the first line that lacks its subject or digest.
  void showIncompleteLine();
  /// What is in the cell that asks for a look-up.
  QString lookedUp() const { return editor_->text(); }
  /// The answer to a look-up: the text comes into the cell that has asked, and the next one up.
  void takeLookedUp(const QString& text);

 signals:
  /// A person is about to change something; whoever hears it may refuse.
  void EditRequest(bool* granted);
  /// A subject was entered into a line, which the listener writes there.
  void SubjectEntered(std::size_t line, const QString& code);
  void BrowseDigest(std::size_t line);
  void BrowseSubject(std::size_t line);
  void BrowseSign();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  using enum voucher_column::Column;
  struct Cell {
    std::size_t row;
    std::size_t column;
  };

  void arrangePaper();
  QLayout* title();
  QLayout* head();
  QLayout* foot();
  void connectEvents();
  void addMenu();
  template <typename Sender, typename Signal, typename Routine>
  void on(Sender* sender, Signal signal, Routine routine) {
    host_.connect(sender, signal, *this, *this, routine);
  }

  void showHead();
  void showLines();
  void showLine(std::size_t line);
  void fillPaper();
  void showState();

  bool mayEdit();
  void openCell(Cell cell);
  void keep(std::size_t row, std::size_t column, const QString& text);
  void moveOn(std::size_t row, std::size_t column);
  bool takeOffered(std::size_t column);
  void moveBack(Cell from);
  void moveToNextLine(std::size_t row, std::size_t column);
  Cell currentCell() const;
  void insertHere();
  void removeHere();
  void balanceHere(Cell cell);
  void turnSide(Cell cell);
  void requestLookUp(std::size_t row, std::size_t column);
  void takeDate(const QDate& date);
  void takeAttachments(int count);
  void browseSign();
  void clearSign();

  bool keyPressed(QObject* watched, const QKeyEvent& key);
  bool gridKey(const QKeyEvent& key);
  bool boxKey(const QKeyEvent& key);
  bool amountKey(const QKeyEvent& key, Cell cell);
  bool lineKey(const QKeyEvent& key);
  bool signKey(const QKeyEvent& key);

  FormHost& host_;
  QLabel* caption_ = new QLabel(this);
  QLabel* state_ = new QLabel(this);
  QLineEdit* sign_ = new QLineEdit(this);
  QPushButton* signButton_ = new QPushButton("…", this);
  QDateEdit* date_ = new QDateEdit(this);
  QSpinBox* attachments_ = new QSpinBox(this);
  FlexGrid* lines_ = new FlexGrid(this);
  VoucherTotalsLine* totals_ = new VoucherTotalsLine(*lines_, Debit, Credit, this);
  QLabel* bookkeeper_ = new QLabel(this);
  QLabel* checker_ = new QLabel(this);
  QLabel* cashier_ = new QLabel(this);
  QLabel* billMaker_ = new QLabel(this);
  CellEditor* editor_ = new CellEditor(lines_);
  QLineEdit* box_;
  QValidator* amount_ = nullptr;
  Cell opened_{1, Digest};  // the cell that is or was open last
  bool refused_ = false;    // the subject that was typed last is not in the chart
  QString offered_;         // digest that a new line begins with
};

}  // namespace zelkor
