#pragma once

#include <initializer_list>
#include <QToolBar>
#include <string_view>

namespace zelkor {

/// A row of commands that are known by their captions, with icons; an empty caption is a separator. "刷新"
/// answers to F5, "保存" to Ctrl+S wherever the focus is.
class Toolbar final : public QToolBar {
  Q_OBJECT

 public:
  explicit Toolbar(QWidget* parent = nullptr);

  void setButtons(std::initializer_list<const char*> captions);
  /// The command with that caption; error 9 when there is none.
  QAction& button(std::string_view caption) const;
  void enable(std::string_view caption, bool enabled) { button(caption).setEnabled(enabled); }

 signals:
  void ButtonClick(const QString& caption);
};

}  // namespace zelkor
