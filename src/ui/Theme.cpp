#include "ui/Theme.h"

#include <QApplication>
#include <QFont>
#include <QPalette>
#include <QStyleFactory>

namespace zelkor {
namespace {

constexpr int kPointSize = 10;

QPalette lightPalette() {
  QPalette palette;
  palette.setColor(QPalette::Window, QColor(0xf4f6f8));
  palette.setColor(QPalette::WindowText, QColor(0x1f2933));
  palette.setColor(QPalette::Base, Qt::white);
  palette.setColor(QPalette::AlternateBase, QColor(0xf7f9fb));
  palette.setColor(QPalette::Text, QColor(0x1f2933));
  palette.setColor(QPalette::Button, QColor(0xf8fafb));
  palette.setColor(QPalette::ButtonText, QColor(0x1f2933));
  palette.setColor(QPalette::Highlight, QColor(0x2f6fb2));
  palette.setColor(QPalette::HighlightedText, Qt::white);
  palette.setColor(QPalette::PlaceholderText, QColor(0x8793a1));
  const auto disabled = QPalette::Disabled;
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
    palette.setColor(disabled, role, QColor(0x8a95a1));
  }
  palette.setColor(disabled, QPalette::Base, QColor(0xf0f2f4));
  return palette;
}

constexpr const char* kStyleSheet = R"(
QLineEdit, QPlainTextEdit, QTextEdit {
  border: 1px solid #b9c3cd; border-radius: 3px; padding: 3px 6px; background: white; min-height: 21px;
}
QLineEdit:focus, QPlainTextEdit:focus { border-color: #2f6fb2; }
QLineEdit:disabled, QLineEdit:read-only { background: #f0f2f4; color: #5b6773; }
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

}  // namespace

void applyTheme(QApplication& application) {
  QApplication::setStyle(QStyleFactory::create("Fusion"));
  QApplication::setPalette(lightPalette());
  QFont font("Noto Sans CJK SC", kPointSize);
  font.setStyleStrategy(QFont::PreferAntialias);
  QApplication::setFont(font);
  application.setStyleSheet(kStyleSheet);
}

}  // namespace zelkor
