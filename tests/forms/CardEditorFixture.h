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
    inModalForm([entry](QWidget& picker) {
      selectNode(picker, "TvAssentTypes", entry);
      click(picker, "CmdOK");
    });
    click(form, name("CmdAddCards", field).c_str());
  }
  static void pickSubject(const QWidget& form, const QString& node) {
    inModalForm([node](QWidget& picker) {
      selectNode(picker, "TvCode", node);
      click(picker, "cmdOK");
    });
    click(form, "CmdAddCards24");
  }

  void expectWarning(const std::string& text) { dialogs.expectOk(text, Icon::Exclamation, "固定资产"); }
  void expectSaved() { dialogs.expectOk("固定资产卡片已正确保存！", Icon::Information, "固定资产"); }

  /// "保存" and so on of the keys that are enabled.
  static std::string enabledKeys(const QWidget& form) {
    std::string keys;
    for (const char* key : {"保存", "编辑", "取消", "修改", "删除", "退出"}) {
      if (command(form, key).isEnabled()) keys += key;
    }
    return keys;
  }
  std::string count(const std::string& table) { return row("select Count(*) from " + table); }
};

}  // namespace zelkor::test
