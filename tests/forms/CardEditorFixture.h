#pragma once

#include <QLabel>
#include <QMouseEvent>

#include "cards/FrmAddCards.h"
#include "support/Widgets.h"

namespace zelkor::test {

/// The card editor on a fresh account set in May 2020, driven through its controls. Fields go by their
/// number.
class CardEditorTest : public FormTest {
 protected:
  CardEditorTest() {
    context.gOpArgs.setZkDataPath(context.gstrZtFile);
    context.gOpArgs.setOpDate(context.gdOpDate);
    context.gOpArgs.setUser(context.gstrUser);
  }

  FrmAddCards& open(const ScreenProperties& properties) {
    FrmAddCards& form = host.show<FrmAddCards>(properties);
    settle();  // the window becomes the active one, in which the focus moves
    return form;
  }
  FrmAddCards& openNew(const std::string& category, CardMode mode = CardMode::Original) {
    return open({.AssetTypeID = category, .frmType = static_cast<std::int16_t>(mode), .CardID = "52"});
  }
  FrmAddCards& openStored(const std::string& cardID, bool bView = false) {
    return open({.frmType = 3, .CardID = cardID, .bView = bView});
  }

  static std::string name(const char* array, int field) { return array + std::to_string(field); }
  static QLabel& value(const QWidget& form, int field) {
    return control<QLabel>(form, name("LblValue", field).c_str());
  }
  static std::string shown(const QWidget& form, int field) { return value(form, field).text().toStdString(); }
  static void pressValue(const QWidget& form, int field) {
    QMouseEvent press(QEvent::MouseButtonPress, QPointF(4, 4), QPointF(), Qt::LeftButton, Qt::LeftButton,
                      Qt::NoModifier);
    QApplication::sendEvent(&value(form, field), &press);
  }
  static QLineEdit& editor(const QWidget& form) { return control<QLineEdit>(form, "TxtEdit"); }
  /// True while the editor lies over that field.
  static bool isEdited(const QWidget& form, int field) {
    return editor(form).isVisible() &&
           value(form, field).geometry().contains(editor(form).geometry().center());
  }
  /// Clicks on the field and types over what stands there.
  static void edit(const QWidget& form, int field, const QString& text) {
    pressValue(form, field);
    ASSERT_TRUE(isEdited(form, field)) << "field " << field << " cannot be edited";
    type(form, "TxtEdit", text);
  }
  /// Types over what is selected in the editor.
  static void typeKeys(const QWidget& form, const QString& text) {
    for (const QChar letter : text) sendKey(editor(form), letter.unicode(), Qt::NoModifier, letter);
  }
  static void leave(const QWidget& form) { sendKey(editor(form), Qt::Key_Return); }
  static void enter(const QWidget& form, int field, const QString& text) {
    edit(form, field, text);
    leave(form);
  }
  /// Picks an entry of an archive by the field's button.
  static void pickEntry(const QWidget& form, int field, const QString& entry) {
    pickNext("TvAssentTypes", entry, "CmdOK");
    click(form, name("CmdAddCards", field).c_str());
  }
  static void pickSubject(const QWidget& form, const QString& node) {
    pickNext("TvCode", node, "cmdOK");
    click(form, "CmdAddCards24");
  }
  /// Department, way of addition and status, which a card must have.
  static void fillReferences(const QWidget& form) {
    pickEntry(form, 8, "一车间");
    pickEntry(form, 9, "直接购入");
    pickEntry(form, 11, "在用");
  }
  /// All that a card must have.
  static void fillCard(const QWidget& form, const QString& assetName, const QString& value) {
    enter(form, 4, assetName);
    fillReferences(form);
    enter(form, 14, "2020-4-6");
    enter(form, 17, value);
  }

  void saveAndExpectSuccess(const QWidget& form) {
    tells("固定资产卡片已正确保存！", Icon::Information);
    press(form, "保存");
  }
  /// Texts of these fields, joined by "|".
  static std::string shown(const QWidget& form, std::initializer_list<int> fields) {
    std::string joined;
    for (const int field : fields) joined += (field == *fields.begin() ? "" : "|") + shown(form, field);
    return joined;
  }
  /// Keys of the toolbar that are enabled.
  static std::string enabledKeys(const QWidget& form) {
    return enabledOf(form, {"保存", "编辑", "取消", "修改", "删除", "退出"});
  }
};

}  // namespace zelkor::test
