#pragma once

#include <initializer_list>
#include <QString>
#include <QToolBar>
#include <string_view>

namespace zelkor {

/// A command of a toolbar. It is known by its key, which is its caption unless it has one of its own; an
/// empty caption is a separator.
struct ToolbarButton {
  // NOLINTNEXTLINE(google-explicit-constructor): captions stand bare in the list
  ToolbarButton(const char* itsCaption) : caption(itsCaption), key(itsCaption) {}
  ToolbarButton(const char* itsCaption, const char* itsKey) : caption(itsCaption), key(itsKey) {}

  QString caption;
  QString key;
};

/// A row of commands with icons. "刷新" answers to F5, "保存" to Ctrl+S wherever the focus is.
class Toolbar final : public QToolBar {
  Q_OBJECT

 public:
  explicit Toolbar(QWidget* parent = nullptr);

  void setButtons(std::initializer_list<ToolbarButton> buttons);
  /// The command with that key; error 9 when there is none.
  QAction& button(std::string_view key) const;
  void enable(std::string_view key, bool enabled) { button(key).setEnabled(enabled); }

 signals:
  void ButtonClick(const QString& key);
};

}  // namespace zelkor
