#include "ui/Theme.h"

#include <iostream>
#include <QApplication>
#include <QFont>
#include <QFontDatabase>
#include <QLibraryInfo>
#include <QPalette>
#include <QProxyStyle>
#include <QTranslator>

namespace zelkor {
namespace {

constexpr int kPointSize = 10;

/// The button behind which the rest of a toolbar is can hardly be seen in its usual width.
class OwnStyle final : public QProxyStyle {
 public:
  OwnStyle() : QProxyStyle("Fusion") {}
  int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override {
    constexpr int kOverflowWidth = 30;
    return metric == PM_ToolBarExtensionExtent ? kOverflowWidth
                                               : QProxyStyle::pixelMetric(metric, option, widget);
  }
};

struct RoleColor {
  QPalette::ColorRole role;
  QRgb color;
};

constexpr QRgb kInk = 0x1f2933;
constexpr QRgb kMarked = 0x2f6fb2;

constexpr RoleColor kColors[] = {
    {QPalette::WindowText, kInk},
    {QPalette::Text, kInk},
    {QPalette::ButtonText, kInk},
    {QPalette::ToolTipText, kInk},
    {QPalette::Window, 0xf4f6f8},
    {QPalette::Base, 0xffffff},
    {QPalette::AlternateBase, 0xf7f9fb},
    {QPalette::Button, 0xf8fafb},
    {QPalette::ToolTipBase, 0xffffff},
    {QPalette::Highlight, kMarked},
    {QPalette::HighlightedText, 0xffffff},
    {QPalette::PlaceholderText, 0x8793a1},
    {QPalette::Link, kMarked},
    {QPalette::LinkVisited, kMarked},
};
constexpr RoleColor kLockedColors[] = {
    {QPalette::WindowText, 0x8a95a1},
    {QPalette::Text, 0x8a95a1},
    {QPalette::ButtonText, 0x8a95a1},
    {QPalette::Base, 0xf0f2f4},
};

/// Every role is set: what is left out would be the desktop's, which may be a dark one.
QPalette lightPalette() {
  QPalette palette(QColor(0xf8fafb), QColor(0xf4f6f8));
  for (const auto& [role, color] : kColors) palette.setColor(role, QColor(color));
  for (const auto& [role, color] : kLockedColors) palette.setColor(QPalette::Disabled, role, QColor(color));
  return palette;
}

/// The font that the package brings, or another one that writes Chinese; empty where there is none.
QString chineseFamily() {
  constexpr const char* kOwnFamily = "Noto Sans CJK SC";
  const QStringList families = QFontDatabase::families(QFontDatabase::SimplifiedChinese);
  if (families.isEmpty() || families.contains(kOwnFamily)) return families.isEmpty() ? QString() : kOwnFamily;
  return families.front();
}

QFont ownFont() {
  const QString family = chineseFamily();
  if (family.isEmpty())
    std::cerr << "zelkor: 没有中文字体，文字显示不出来；请安装软件包 fonts-noto-cjk" << std::endl;
  QFont font;
  if (!family.isEmpty()) font.setFamilies({family});
  font.setPointSize(kPointSize);
  font.setStyleStrategy(QFont::PreferAntialias);
  return font;
}

/// Keeps what we have set: there are desktops whose part in the window system sets its own later on.
class OwnLook final : public QObject {
 public:
  explicit OwnLook(QApplication& application) : QObject(&application), font_(ownFont()) {
    application.installEventFilter(this);
    QApplication::setPalette(palette_);
    QApplication::setFont(font_);
  }

  bool eventFilter(QObject* watched, QEvent* event) override {
    const bool fontChanged = event->type() == QEvent::ApplicationFontChange && QApplication::font() != font_;
    // With a theme come fonts for the kinds of controls; to set the font takes them away again.
    if (fontChanged || event->type() == QEvent::ThemeChange) {
      QApplication::setFont(font_);
    } else if (event->type() == QEvent::ApplicationPaletteChange && QApplication::palette() != palette_) {
      QApplication::setPalette(palette_);
    }
    return QObject::eventFilter(watched, event);
  }

 private:
  QPalette palette_ = lightPalette();
  QFont font_;
};

constexpr const char* kStyleSheet = R"(
QLineEdit, QPlainTextEdit, QTextEdit {
  border: 1px solid #b9c3cd; border-radius: 3px; padding: 3px 6px; background: white; min-height: 21px;
}
QLineEdit:focus, QPlainTextEdit:focus { border-color: #2f6fb2; }
QLineEdit:disabled, QLineEdit:read-only { background: #f0f2f4; color: #5b6773; }
QLineEdit[picked="true"]:!read-only { background: #eaf2fb; }
QComboBox { min-height: 23px; }
QPushButton {
  border: 1px solid #b9c3cd; border-radius: 3px; padding: 4px 16px; background: #f8fafb; min-height: 19px;
}
QPushButton:hover { background: #eaf1f8; border-color: #2f6fb2; }
QPushButton:pressed { background: #d7e5f3; }
QPushButton:focus { border-color: #2f6fb2; }
QPushButton:default { border: 1px solid #2f6fb2; background: #e3edf8; }
QPushButton:default:focus { background: #cfe0f3; }
QPushButton:disabled, QPushButton:default:disabled { color: #a9b2bd; border-color: #d5dbe1; background: #f8fafb; }
QPushButton[pick="true"] { padding: 3px 0; min-width: 28px; max-width: 28px; min-height: 21px; }
QToolButton[spin="true"] { border: 1px solid #b9c3cd; background: #f8fafb; padding: 0; }
QToolBar { background: white; border: none; border-bottom: 1px solid #d5dbe1; padding: 4px 8px; spacing: 4px; }
QToolBar QToolButton { padding: 4px 8px; border: 1px solid transparent; border-radius: 3px; }
QToolBar QToolButton:hover:enabled { background: #eaf1f8; border-color: #c3d5e8; }
QToolBar QToolButton:pressed, QToolBar QToolButton:checked { background: #d7e5f3; }
QToolBar QToolButton:disabled { color: #a9b2bd; }
QGroupBox { border: 1px solid #d0d7de; border-radius: 4px; margin-top: 10px; padding-top: 6px; }
QGroupBox::title { subcontrol-origin: margin; left: 10px; padding: 0 4px; color: #34568b; }
QTreeView, QTableView, QListView { border: 1px solid #c6cfd8; background: white; }
QTableView { gridline-color: #e1e6eb; selection-background-color: #d7e5f3; selection-color: #1f2933; }
QTreeView::item { min-height: 24px; }
QHeaderView { background: #eef1f4; }
QTabWidget::pane { border: 1px solid #c6cfd8; background: white; }
QToolTip { background: white; color: #1f2933; border: 1px solid #c6cfd8; padding: 3px 6px; }
QToolButton#qt_toolbar_ext_button { background: #eaf1f8; border: 1px solid #c3d5e8; border-radius: 3px; }
QDialogButtonBox { dialogbuttonbox-buttons-have-icons: 0; button-layout: 0; }
QLabel[field="true"] {
  border: 1px solid #b9c3cd; border-radius: 3px; padding: 3px 6px; background: #f0f2f4; min-height: 21px;
}
QLabel[field="true"][picked="true"] { background: #eaf2fb; }
QLabel[field="true"][picked="true"]:focus { border-color: #2f6fb2; }
QLabel[note="true"] { color: #5b6773; }
QLabel[title="true"] { font-size: 15px; font-weight: bold; color: #34568b; }
QFrame[rule="true"] { color: #d5dbe1; }
QFrame[sheet="paper"] { background: white; border: 1px solid #c6cfd8; }
QLabel[sheet="title"] { font-size: 21px; font-weight: bold; letter-spacing: 6px; color: #1f2933; border: none; }
QLabel[sheet="kind"] { font-size: 13px; color: #34568b; border: none; }
QLabel[sheet="open"] { color: #5b6773; border: none; }
QLabel[sheet="written"] { color: #1f2933; border: none; }
QFrame[sheet="table"] { background: #aeb9c5; border: none; }
QLabel[sheet="caption"] { background: #f1f4f7; color: #4a5663; border: none; padding: 0 10px; }
QLabel[sheet="value"] { background: white; color: #1f2933; border: none; padding: 0 10px; }
QLabel[sheet="value"][entry="true"] { background: #fffbe6; }
QLabel[sheet="value"][entry="true"]:hover { background: #fff6cc; }
QLabel[sheet="value"][entry="true"]:focus { background: #fff3b8; }
QLabel[sheet="value"][picked="true"] { background: #eaf2fb; }
QLabel[sheet="value"][picked="true"]:hover, QLabel[sheet="value"][picked="true"]:focus { background: #d7e5f3; }
QLineEdit[over="true"], QLineEdit[over="true"]:read-only {
  background: white; color: #1f2933; border: 2px solid #2f6fb2; border-radius: 0; padding: 0 8px; min-height: 0;
}
QLineEdit[over="true"]:read-only { background: #eaf2fb; }
QPushButton[pick="true"][over="true"] { min-height: 0; padding: 0; }
)";

/// The texts of the window system's own dialogs and menus.
void speakChinese(QApplication& application) {
  auto* texts = new QTranslator(&application);
  if (texts->load("qtbase_zh_CN", QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
    QApplication::installTranslator(texts);
  }
}

}  // namespace

void ignoreDesktopSettings() {
  QApplication::setDesktopSettingsAware(false);
}

void applyTheme(QApplication& application) {
  QApplication::setStyle(new OwnStyle);
  new OwnLook(application);
  application.setStyleSheet(kStyleSheet);
  speakChinese(application);
}

}  // namespace zelkor
