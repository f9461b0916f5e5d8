#pragma once

#include <array>
#include <optional>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QRegularExpressionValidator>
#include <QTabBar>
#include <QToolButton>
#include <string>
#include <vector>

#include "cards/CardSheet.h"
#include "cards/FrmAddCardsPaper.h"
#include "startup/RunTypes.h"
#include "ui/FlexGrid.h"
#include "ui/Form.h"
#include "ui/Toolbar.h"

namespace zelkor {

/// Enters a new card, shows a stored one and rewrites it. The fields stand where the card's layout puts them.
class FrmAddCards final : public Form {
 public:
  /// `frmType` is the CardMode; a new card takes its category from AssetTypeID, a stored one is CardID. With
  /// bView the card can be looked at only. Date and operator are those of the shared ClsOpArgs.
  FrmAddCards(FormHost& host, const ScreenProperties& properties);

 private:
  /// How a field came to be edited. One that the keyboard only passes stays as it is.
  enum class Arrival { ByClick, ByKeyboard };
  /// Control arrays count the fields from 1; the first of each is the pattern and stays hidden.
  static constexpr std::size_t kArraySize = kCardFieldCount + 1;

  Toolbar* Toolbar1 = make<Toolbar>("Toolbar1");
  QMenu* mnuPop = make<QMenu>("mnuPop");
  QMenu* mnuMove = make<QMenu>("mnuMove", "移动(&M)");
  CardPaper* PicCard = make<CardPaper>("PicCard");
  std::array<QLabel*, kArraySize> LblCaption = makeArray<QLabel, kArraySize>("LblCaption");
  std::array<QLabel*, kArraySize> LblValue = makeArray<QLabel, kArraySize>("LblValue");
  std::array<QToolButton*, kArraySize> CmdAddCards = makeArray<QToolButton, kArraySize>("CmdAddCards");
  QLineEdit* TxtEdit = make<QLineEdit>("TxtEdit");
  QTabBar* SSTab1 = make<QTabBar>("SSTab1");
  QLabel* LblTitle = make<QLabel>("LblTitle");
  FlexGrid* GridTmp = make<FlexGrid>("GridTmp");

  void arrangeControls();
  void arrangeFields();
  QLayout* records();
  void unfold(bool open);
  void fitHeight();
  void addMoves();
  void connectEvents();

  void layOut();
  void placeField(const CardFieldPlace& place);
  void showSheet();
  void startNewCard();
  void showCard(const std::string& cardID, CardLayout layout);

  /// A step of the walk: the version reached and the layout of its method. Without any cards that is said.
  struct Reached {
    std::string cardID;
    CardLayout layout;
  };
  std::optional<Reached> reach(CardMove move);

  void openField(CardField field, Arrival arrival);
  void openEditor(const CardFieldPlace& place, Arrival arrival);
  /// Takes what stands in the editor; false when it was refused and the field stays under edit.
  bool leaveField();
  void closeEditor();
  void giveUpEdit();
  void moveField(int step);
  void pick(CardField field);
  bool pickEntry(CardField field, ArchiveKind kind);
  bool pickSubject(CardField field);

  void change();
  void SSTab1_Click();
  void save();
  void cancel();
  void edit();
  void remove();
  void walk(CardMove move);
  void showLast();
  void refuse(const std::string& message);

  bool eventFilter(QObject* control, QEvent* event) override;
  bool labelPressed(const QObject* label, QEvent::Type type);
  bool openingKeyPressed(const QKeyEvent& key);
  bool enterPressed(QObject* control) override;
  void escapePressed() override;
  bool focusNextPrevChild(bool next) override;
  void Form_Unload() override { editing_ = false; }

  const ClsOpArgs& opArgs() { return run().gOpArgs; }
  QRegularExpressionValidator* figure_ =
      new QRegularExpressionValidator(QRegularExpression("[0-9]*[.]?[0-9]*%?"), this);
  QRegularExpressionValidator* life_ =
      new QRegularExpressionValidator(QRegularExpression("[0-9.年月]*"), this);
  bool bView_;
  std::string cardID_;
  std::string assetTypeID_;
  ClsBLLFACards cards_{run()};
  CardSheet sheet_;
  std::vector<CardField> order_;
  std::optional<CardField> current_;
  QString before_;       // what the editor was opened with
  CardSheet untouched_;  // the card at that moment
  Arrival arrival_ = Arrival::ByClick;
  bool editing_ = false;
  bool leaving_ = false;
};

/// Opens the card editor. A new card begins with its category; leaving that picker opens nothing.
void showCardEditor(FormHost& host, ScreenProperties properties);

}  // namespace zelkor
