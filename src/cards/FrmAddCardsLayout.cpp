#include <QBoxLayout>
#include <QHeaderView>
#include <QScrollArea>

#include "cards/CardEditing.h"
#include "cards/FrmAddCards.h"
#include "ui/Layout.h"
#include "ui/WindowPlace.h"

namespace zelkor {
namespace {

using namespace layout;

constexpr const char* kRecordHeading = "设备编号|名称|规格型号|数量|价值|单位|使用日期|备注";
constexpr std::array kRecordWidths = {1500, 2600, 1800, 1000, 1500, 1000, 1500, 2600};  // twips
constexpr std::size_t kQuantityColumn = 3;
constexpr std::size_t kValueColumn = 4;
constexpr int kRecordsHeight = 84;
constexpr int kCaptionIndent = 8;
constexpr int kValueIndent = 6;
constexpr int kButtonWidth = 24;
constexpr int kWidth = 956;

/// What the card lies on. It asks for the card's height and scrolls where there is less.
class Desk final : public QScrollArea {
 public:
  using QScrollArea::QScrollArea;
  QSize sizeHint() const override { return widget()->size(); }
};

/// What must be filled in before such a card is saved: all that an empty one lacks.
std::vector<CardField> requiredFields(CardMode mode) {
  CardSheet empty;
  empty.mode = mode;
  return missingFields(empty);
}

Qt::Alignment alignmentOf(CardDataType type) {
  const bool figure = type == CardDataType::Cur || type == CardDataType::Per || type == CardDataType::Int;
  return (figure ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter;
}

}  // namespace

void FrmAddCards::arrangeControls() {
  setCommands(Toolbar1, {{"保存", &FrmAddCards::save},
                         {"编辑", &FrmAddCards::edit},
                         {"取消", &FrmAddCards::cancel},
                         {},
                         {"修改", &FrmAddCards::change},
                         {"删除", &FrmAddCards::remove},
                         {},
                         {"退出", &FrmAddCards::close}});
  addMoves();
  arrangeFields();
  auto* desk = new Desk;
  desk->setWidget(PicCard);
  desk->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
  desk->setFrameShape(QFrame::NoFrame);
  desk->setFocusPolicy(Qt::NoFocus);
  arrangeScreen(this, Toolbar1, column({desk, records(), stretch()}));
  resize(kWidth, kWidth);
}

/// The window is as high as the card and the tabs below it need.
void FrmAddCards::fitHeight() {
  PicCard->parentWidget()->parentWidget()->updateGeometry();
  if (isMaximized()) return;
  resize(width(), layout()->sizeHint().height());
  fitToScreen(*this);
}

/// The walk through the cards, below "编辑" and by keys of its own.
void FrmAddCards::addMoves() {
  addCommands(mnuMove, {{"第一个", [this] { walk(CardMove::First); }, {}, Qt::ALT | Qt::Key_Home},
                        {"上一个", [this] { walk(CardMove::Previous); }, {}, Qt::ALT | Qt::Key_PageUp},
                        {"下一个", [this] { walk(CardMove::Next); }, {}, Qt::ALT | Qt::Key_PageDown},
                        {"最后一个", [this] { walk(CardMove::Last); }, {}, Qt::ALT | Qt::Key_End}});
  mnuPop->addMenu(mnuMove);
}

void FrmAddCards::arrangeFields() {
  for (std::size_t i = 0; i < kArraySize; ++i) {
    for (QWidget* part : {static_cast<QWidget*>(LblCaption[i]), static_cast<QWidget*>(LblValue[i]),
                          static_cast<QWidget*>(CmdAddCards[i])}) {
      part->setParent(PicCard);
      part->hide();
    }
    LblCaption[i]->setIndent(kCaptionIndent);
    LblValue[i]->setTextFormat(Qt::PlainText);
    LblValue[i]->setIndent(kValueIndent);
    CmdAddCards[i]->setText("…");
    CmdAddCards[i]->setProperty("spin", true);
    CmdAddCards[i]->setFocusPolicy(Qt::NoFocus);
    on(CmdAddCards[i], &QToolButton::clicked, [this, i] { pick(static_cast<CardField>(i)); });
  }
  TxtEdit->setParent(PicCard);
  TxtEdit->setStyleSheet("border: 2px solid #2f6fb2; border-radius: 0; padding: 0 3px; min-height: 0;");
  TxtEdit->hide();
}

/// The six lists of what happened to the asset: a frame that nothing is kept in. They stay folded until a tab
/// is turned to.
QLayout* FrmAddCards::records() {
  for (const char* caption :
       {"附属设备", "大修理记录", "资产转移记录", "停启用记录", "原值变动", "减少信息"}) {
    SSTab1->addTab(caption);
  }
  SSTab1->setExpanding(false);
  LblTitle->setProperty("title", true);
  GridTmp->setFixedHeight(kRecordsHeight);
  GridTmp->horizontalHeader()->setStretchLastSection(true);
  on(SSTab1, &QTabBar::tabBarClicked,
     [this](int tab) { unfold(tab != SSTab1->currentIndex() || GridTmp->isHidden()); });
  unfold(false);
  auto* list = column({SSTab1, LblTitle, GridTmp});
  list->setSpacing(4);
  return list;
}

void FrmAddCards::unfold(bool open) {
  LblTitle->setVisible(open);
  GridTmp->setVisible(open);
  if (isVisible()) fitHeight();
}

void FrmAddCards::SSTab1_Click() {
  LblTitle->setText(SSTab1->tabText(SSTab1->currentIndex()));
  TextGrid grid;
  grid.setHeader(kRecordHeading);
  for (std::size_t i = 0; i < kRecordWidths.size(); ++i) grid.setColumnWidth(i, kRecordWidths[i]);
  for (const std::size_t figure : {kQuantityColumn, kValueColumn}) grid.setAlignment(figure, Align::Right);
  GridTmp->setGrid(std::move(grid));
}

/// Puts the fields of the card's layout in their places and takes away those that it does not have.
void FrmAddCards::layOut() {
  PicCard->setPlaces(layOutCard(sheet_.layout), requiredFields(sheet_.mode));
  order_ = bView_ ? std::vector<CardField>() : entryOrder(PicCard->places());
  for (std::size_t i = 1; i < kArraySize; ++i) {
    const CardFieldPlace* place = PicCard->find(static_cast<CardField>(i));
    LblCaption[i]->setVisible(place);
    LblValue[i]->setVisible(place);
    CmdAddCards[i]->setVisible(place && cardField(place->field).hasReference());
    if (place) placeField(*place);
  }
  fitHeight();
}

void FrmAddCards::placeField(const CardFieldPlace& place) {
  const auto i = static_cast<std::size_t>(place.field);
  const CardFieldRow& field = cardField(place.field);
  const QRect value = PicCard->valueRect(place);
  LblCaption[i]->setText(toQt(field.label));
  LblCaption[i]->setGeometry(PicCard->captionRect(place));
  LblValue[i]->setGeometry(value);
  LblValue[i]->setAlignment(alignmentOf(field.type));
  LblValue[i]->setContentsMargins(0, 0, field.hasReference() ? kButtonWidth : 0, 0);
  const bool open = field.enabled() && !bView_;
  LblValue[i]->setStyleSheet(field.enabled() ? "" : "color: #66727f;");
  LblValue[i]->setCursor(!open                  ? Qt::ArrowCursor
                         : field.hasReference() ? Qt::PointingHandCursor
                                                : Qt::IBeamCursor);
  CmdAddCards[i]->setEnabled(field.isCode() && !bView_);
  CmdAddCards[i]->setGeometry(value.right() - kButtonWidth, value.top() + 2, kButtonWidth - 1,
                              value.height() - 3);
}

void FrmAddCards::openEditor(const CardFieldPlace& place, Arrival arrival) {
  const CardFieldRow& field = cardField(place.field);
  const bool digits = field.input == CardInput::Digits;
  const std::size_t size = field.size();
  arrival_ = arrival;
  untouched_ = sheet_;
  before_ = LblValue[static_cast<std::size_t>(place.field)]->text();
  const bool isLife = place.field == CardField::UsefulLife;
  TxtEdit->setValidator(!digits ? nullptr : isLife ? life_ : figure_);
  constexpr int kLongestFigure = 30;
  constexpr int kAnyLength = 32767;
  TxtEdit->setMaxLength(digits ? kLongestFigure : size == 0 ? kAnyLength : static_cast<int>(size));
  TxtEdit->setAlignment(alignmentOf(field.type));
  // The words of a life cannot be typed: an empty one is offered with them, of others the years to type over.
  TxtEdit->setText(isLife && before_.isEmpty() ? toQt(lifeText(0)) : before_);
  TxtEdit->setGeometry(PicCard->valueRect(place).adjusted(0, 0, 1, 1));
  editing_ = true;
  TxtEdit->show();
  TxtEdit->raise();
  TxtEdit->setFocus();
  TxtEdit->selectAll();
  if (isLife) TxtEdit->setSelection(0, std::max(0, static_cast<int>(TxtEdit->text().indexOf("年"))));
}

}  // namespace zelkor
