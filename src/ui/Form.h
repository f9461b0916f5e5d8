#pragma once

#include <array>
#include <cstddef>
#include <functional>
#include <map>
#include <QApplication>
#include <QWidget>
#include <string>
#include <utility>
#include <vector>

#include "startup/RunContext.h"
#include "ui/Command.h"
#include "ui/FormHost.h"
#include "ui/Texts.h"

class QAction;
class QLineEdit;
class QMenu;
class QPushButton;

namespace zelkor {

class Toolbar;

/// What becomes of the process when a form is unloaded.
enum class Unload { Plain, EndsProgram };

/// A screen or dialog of the system. Its controls are members that bear the system's names, made through
/// `make` in their declaration; events are connected through `on`, which guards them.
///
/// Keyboard: Enter moves on from a field and presses a button; where a control has no use of its own for it,
/// it presses the default button. Esc leaves an editor or cancels a dialog, F1 opens the guide. A control
/// that is locked or hidden hands its focus to none that ends or removes something.
class Form : public QWidget {
 public:
  ~Form() override = default;

  /// Looks for the text among what is offered here, to be typed on and taken by Enter; false where nothing
  /// can be looked for. See FormHost::seek.
  virtual bool beginSearch(const QString& text);
  /// Called when the form has been closed; one listener.
  void onClosed(std::function<void()> listener) { closed_ = std::move(listener); }
  /// Whether it is a screen and not a dialog where it is shown modal: it can fill the whole display then.
  virtual bool isScreen() const { return false; }

 protected:
  /// `name` is the form's name in the system, `caption` its title.
  Form(FormHost& host, const char* name, const char* caption, Unload unload);

  FormHost& host() { return host_; }
  RunContext& run() { return host_.run(); }
  Database& data() { return host_.run().dbZKData; }

  /// A control of this form under its name. The form owns it.
  template <typename Control, typename... Arguments>
  Control* make(const char* name, Arguments&&... arguments) {
    auto* control = new Control(std::forward<Arguments>(arguments)..., this);
    control->setObjectName(name);
    adopt(*control);
    return control;
  }
  /// A row of controls of one name, numbered from 0: the objects are "<name>0", "<name>1", ...
  template <typename Control, std::size_t count>
  std::array<Control*, count> makeArray(const std::string& name) {
    std::array<Control*, count> controls{};
    for (std::size_t i = 0; i < count; ++i) controls[i] = make<Control>((name + std::to_string(i)).c_str());
    return controls;
  }

  /// Connects an event to a routine of the form (a member function or a lambda), which gets the event's
  /// arguments if it takes them. Nothing that the routine throws reaches the window system.
  template <typename Sender, typename Signal, typename Routine>
  void on(Sender* sender, Signal signal, Routine routine) {
    host_.connect(sender, signal, events_, *this, routine);
  }

  /// Calls the routine when the focus goes from the field to another control of the form. A look into another
  /// window, a message box among them, leaves nothing.
  template <typename Routine>
  void onLeaving(QWidget* field, Routine routine) {
    on(qApp, &QApplication::focusChanged, [this, field, routine](QWidget* from, QWidget* to) {
      if (from == field && to && to->window() == window()) callRoutine(*this, routine);
    });
  }
  /// The commands of a toolbar in their order. `before` runs ahead of whichever is pressed.
  void setCommands(Toolbar* toolbar, const std::vector<Command>& commands,
                   const std::function<void()>& before = {});
  /// Entries of a menu; their keys act on the whole form.
  void addCommands(QMenu* menu, const std::vector<Command>& commands,
                   const std::function<void()>& before = {});
  /// Enables the commands whose condition holds and locks the others.
  void enableCommands();

  /// Dresses the button beside a field that opens a picker. It takes no focus: F2 in the field presses it. A
  /// label as the field is filled by the picker alone, and a letter typed on it begins the search there.
  void dressPick(QPushButton* button, QWidget* field = nullptr);

  /// The button that Enter presses where nothing else takes it; without a call the one that agrees to a
  /// dialog.
  void setDefaultButton(QPushButton* button);

  /// Locks a button that does nothing on this screen; its tip says so.
  static void lockIdle(QPushButton* button);

  /// The field takes a number without a sign only.
  static void acceptNumbersOnly(QLineEdit* field);
  static void acceptDigitsOnly(QLineEdit* field);

  /// Esc where no editor is open. Dialogs cancel; a main screen stays.
  virtual void escapePressed() {}
  /// Enter in a control, before it moves on; true when the form has made something else of it.
  virtual bool enterPressed(QObject* /*control*/) { return false; }
  /// The form is being unloaded; a screen that holds something open lets go of it here.
  virtual void Form_Unload() {}

  bool eventFilter(QObject* control, QEvent* event) override;
  bool event(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  bool focusNextPrevChild(bool next) override;

 private:
  void adopt(QWidget& control);
  static void focusEntered(QWidget& control);
  bool enterOn(QObject* control);
  bool pickKey(QObject* field, const QKeyEvent& key);
  void moveOnFrom(QWidget& field);
  void connectCommand(QAction* action, const Command& command, const std::function<void()>& before);

  FormHost& host_;
  Unload unload_;
  std::vector<std::pair<QAction*, Command>> conditional_;  // the commands that are not always enabled
  std::map<const QObject*, QPushButton*> picks_;           // by their fields
  QPushButton* default_ = nullptr;
  std::function<void()> closed_;
  bool shownBefore_ = false;
  QObject events_;  // goes first: controls that die with the window still have events to send
};

}  // namespace zelkor
