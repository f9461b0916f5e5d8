#include "ui/Form.h"

#include <QAbstractButton>
#include <QAction>
#include <QCloseEvent>
#include <QComboBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QRegularExpression>
#include <QRegularExpressionValidator>

#include "base/RuntimeError.h"
#include "ui/CommandKeys.h"
#include "ui/FlexGrid.h"
#include "ui/Focus.h"
#include "ui/Guide.h"
#include "ui/Reading.h"
#include "ui/Toolbar.h"
#include "ui/WindowPlace.h"

namespace zelkor {
namespace {

bool isEnter(const QKeyEvent& key) {
  return key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter;
}

constexpr const char* kAgreements[] = {"确定", "确认", "选入"};

/// Fields that Enter leaves for the next one. A list in a grid or tree has uses of its own for it.
bool entersNext(const QObject* control) {
  if (qobject_cast<const QPushButton*>(control)) return false;
  return qobject_cast<const QLineEdit*>(control) || qobject_cast<const QComboBox*>(control) ||
         qobject_cast<const QAbstractButton*>(control) || qobject_cast<const QLabel*>(control);
}

QPushButton* agreement(const QWidget& form) {
  for (auto* button : form.findChildren<QPushButton*>()) {
    for (const char* caption : kAgreements) {
      if (button->text().startsWith(caption) && button->isVisibleTo(&form)) return button;
    }
  }
  return nullptr;
}

void accept(QLineEdit* field, const char* pattern) {
  field->setValidator(new QRegularExpressionValidator(QRegularExpression(pattern), field));
}

}  // namespace

Form::Form(FormHost& host, const char* name, const char* caption, Unload unload)
    : host_(host), unload_(unload) {
  setObjectName(name);
  setWindowTitle(caption);
}

void Form::acceptNumbersOnly(QLineEdit* field) {
  accept(field, "([0-9]+[.]?[0-9]*)?");
}

void Form::acceptDigitsOnly(QLineEdit* field) {
  accept(field, "[0-9]*");
}

void Form::dressPick(QPushButton* button, QWidget* field) {
  button->setProperty("pick", true);
  button->setFocusPolicy(Qt::NoFocus);
  if (!field) return;
  picks_[field] = button;
  if (!qobject_cast<QLabel*>(field)) return;
  field->setFocusPolicy(Qt::StrongFocus);
  field->setProperty("picked", true);
}

void Form::setDefaultButton(QPushButton* button) {
  if (default_) default_->setDefault(false);
  default_ = button;
  if (default_) default_->setDefault(true);
}

bool Form::beginSearch(const QString& text) {
  auto* list = findChild<FlexGrid*>();
  if (!list) return false;
  list->setFocus();
  list->keyboardSearch(text);
  return true;
}

void Form::lockIdle(QPushButton* button) {
  button->setEnabled(false);
  button->setToolTip(idleTip(button->text()));
}

void Form::setCommands(Toolbar* toolbar, const std::vector<Command>& commands,
                       const std::function<void()>& before) {
  for (const Command& command : commands) {
    QAction* button = toolbar->add(command);
    if (!command.isSeparator()) connectCommand(button, command, before);
  }
}

void Form::addCommands(QMenu* menu, const std::vector<Command>& commands,
                       const std::function<void()>& before) {
  for (const Command& command : commands) {
    if (command.isSeparator()) {
      menu->addSeparator();
      continue;
    }
    QAction* entry = menu->addAction(command.text());
    entry->setObjectName(command.name());
    entry->setShortcut(command.key());
    entry->setEnabled(command.hasRoutine());
    if (!command.key().isEmpty()) addAction(entry);
    connectCommand(entry, command, before);
  }
}

void Form::connectCommand(QAction* action, const Command& command, const std::function<void()>& before) {
  on(action, &QAction::triggered, [this, command, before] {
    if (before) before();
    command.run(*this);
  });
  if (command.hasCondition()) conditional_.emplace_back(action, command);
}

void Form::enableCommands() {
  for (const auto& [action, command] : conditional_) action->setEnabled(command.isEnabled(*this));
}

/// A box that is laid over one value after the other gets the name of each.
void Form::focusEntered(QWidget& control) {
  nameControl(control);
  bringIntoView(control);
}

void Form::adopt(QWidget& control) {
  control.installEventFilter(this);
  if (auto* button = qobject_cast<QPushButton*>(&control)) button->setAutoDefault(false);
}

bool Form::eventFilter(QObject* control, QEvent* event) {
  if (event->type() == QEvent::ShortcutOverride) {
    const auto* field = qobject_cast<QLineEdit*>(control);
    return field && leavesKeyToCommand(*field, *static_cast<QKeyEvent*>(event));
  }
  if (event->type() == QEvent::FocusIn) focusEntered(*static_cast<QWidget*>(control));
  if (event->type() != QEvent::KeyPress) return QWidget::eventFilter(control, event);
  const auto& key = *static_cast<QKeyEvent*>(event);
  const bool taken = isEnter(key) ? enterOn(control) : pickKey(control, key);
  return taken || QWidget::eventFilter(control, event);
}

bool Form::enterOn(QObject* control) {
  bool taken = false;
  host_.dispatch([&] { taken = enterPressed(control); });
  if (taken) return true;
  if (auto* button = qobject_cast<QPushButton*>(control)) {
    button->click();
    return true;
  }
  if (!entersNext(control)) return false;
  moveOnFrom(*static_cast<QWidget*>(control));
  return true;
}

bool Form::pickKey(QObject* field, const QKeyEvent& key) {
  const auto pick = picks_.find(field);
  if (pick == picks_.end() || !pick->second->isVisible()) return false;
  const bool begins = field->property("picked").toBool() && writesText(key);
  if (key.key() != Qt::Key_F2 && !begins) return false;
  if (begins) host_.seek(key.text());
  pick->second->click();
  host_.seek({});
  return true;
}

/// To the next control, at the end to the default button.
void Form::moveOnFrom(QWidget& field) {
  QWidget* next = nextBehind(field);
  const bool atEnd = !next || onlyButtonsFrom(*next);
  if (atEnd && default_ && default_->isEnabled() && default_->isVisible()) next = default_;
  if (next) next->setFocus(Qt::TabFocusReason);
}

/// The window system asks for the next child, too, when the focus is taken away from a control.
bool Form::focusNextPrevChild(bool next) {
  QWidget* held = focusWidget();
  if (!held || (held->isEnabled() && held->isVisible())) return QWidget::focusNextPrevChild(next);
  if (QWidget* heir = heirOf(*held)) {
    heir->setFocus(Qt::OtherFocusReason);
  } else {
    held->clearFocus();
  }
  return true;
}

bool Form::event(QEvent* event) {
  if (event->type() == QEvent::ShortcutOverride &&
      belongsToTyping(focusWidget(), *static_cast<QKeyEvent*>(event))) {
    event->accept();
    return true;
  }
  return QWidget::event(event);
}

void Form::keyPressEvent(QKeyEvent* event) {
  if (isEnter(*event) && default_ && default_->isEnabled() && default_->isVisible()) return default_->click();
  if (event->key() == Qt::Key_F1) return host_.dispatch([this] { showGuide(run(), *this); });
  if (event->key() != Qt::Key_Escape) return QWidget::keyPressEvent(event);
  host_.dispatch([this] { escapePressed(); });
}

void Form::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  if (!default_) setDefaultButton(agreement(*this));
  nameControls(*this);
  if (!std::exchange(shownBefore_, true)) tabAsOneReads(*this);
  setAttribute(Qt::WA_KeyboardFocusChange);  // where the keyboard works is seen before the first key
}

void Form::closeEvent(QCloseEvent* event) {
  event->accept();
  host_.dispatch([this] {
    Form_Unload();
    if (unload_ == Unload::EndsProgram) throw EndProgram{};
  });
  if (closed_) closed_();
}

}  // namespace zelkor
