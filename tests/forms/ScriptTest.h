#pragma once

#include <memory>
#include <QWidget>
#include <vector>

#include "forms/Script.h"
#include "support/Widgets.h"
#include "vouchers/VoucherFixture.h"

namespace zelkor::test {

/// Plays one scene of a script on a fresh account set in May 2020.
class ScriptTest : public WithForms<VoucherTest> {
 public:
  ScriptTest(const Script& script, const ScriptLine& scene);

  void TestBody() override;
  void play(const std::vector<ScriptLine>& lines);
  /// What is played on `modal` ends there; then the screen before is the current one again.
  void playOn(QWidget& modal, const std::vector<ScriptLine>& lines);

  /// The screen that the lines are about.
  QWidget& form() const;
  void enter(QWidget& screen) { forms_.back() = &screen; }
  /// The window that a keyboard would write to.
  QWidget& windowInFront() const;

  /// The control of that name, or in that control: "MSFlexGridXZ/TxtInput"; "." is the screen itself, "here"
  /// is what has the focus.
  template <typename Control = QWidget>
  Control& at(const std::string& path) const {
    const std::size_t slash = path.find('/');
    if (path == ".") return dynamic_cast<Control&>(form());
    if (path == "here") return dynamic_cast<Control&>(*QApplication::focusWidget());
    if (slash == std::string::npos) return control<Control>(form(), path.c_str());
    return control<Control>(control<QWidget>(form(), path.substr(0, slash).c_str()),
                            path.substr(slash + 1).c_str());
  }

  /// Remembers what the query gives; what is asked later is whether it still does.
  void keep(const std::string& query) { keptRows = rows(keptQuery = query); }
  std::string keptQuery;
  Lines keptRows;

  /// The voucher that was saved last.
  std::optional<VoucherRequest> saved;
  /// What the opener of a screen owns while it is open.
  std::vector<std::shared_ptr<void>> owned;

  using AccountSetTest::context;
  using AccountSetTest::dialogs;
  using AccountSetTest::engine;
  using AccountSetTest::execute;
  using AccountSetTest::missingFile;
  using AccountSetTest::rows;
  using VoucherTest::cardVoucher;
  using VoucherTest::depreciationVoucher;
  using VoucherTest::saveVoucher;
  using VoucherTest::stageCard;
  using VoucherTest::stageDepreciation;
  using WithForms::activate;
  using WithForms::endStatus;
  using WithForms::parameter;
  using WithForms::setParameter;
  using WithForms::settle;

 private:
  void play(const ScriptLine& line);

  const Script& script_;
  const ScriptLine& scene_;
  std::vector<QWidget*> forms_{nullptr};  // the innermost modal one last
  int depth_ = 0;                         // words within words and modal forms
  bool acted_ = false;
};

/// What follows a verb.
struct Arguments {
  std::string option;              // after a colon in the verb
  std::string line;                // the rest
  std::vector<std::string> parts;  // it, parted by arrows
  const std::vector<ScriptLine>& below;

  /// A part, empty where it is left out.
  std::string part(std::size_t index) const { return index < parts.size() ? parts[index] : ""; }
  /// The blank-separated words of the first part.
  std::vector<std::string> words() const;
  std::string word(std::size_t index) const;
  std::size_t number(std::size_t index) const { return std::stoul(word(index)); }
  /// The first part after this many words.
  std::string behind(std::size_t words) const;
};

using Verb = void (*)(ScriptTest& test, const Arguments& arguments);

/// The windows of that name that are shown.
std::vector<QWidget*> windowsOf(const std::string& name);

/// What a person does, what is prepared for the next action, and what is looked at.
const std::map<std::string, Verb>& actionVerbs();
const std::map<std::string, Verb>& preparingVerbs();
const std::map<std::string, Verb>& lookingVerbs();

/// Shows the screen of that name, with what it is given.
QWidget& openScreen(ScriptTest& test, const Arguments& arguments);
/// Has start-up open the screen of a run type.
void startByRunType(ScriptTest& test, const Arguments& arguments);
/// The lines of the voucher that the screen shows.
Lines voucherLines(const QWidget& form);
/// What a picker or a dialog has given to whoever opened it.
std::string answerOf(QWidget& form);
/// Enters cards, events and vouchers as the other screens and jobs do.
void prepare(ScriptTest& test, const Arguments& arguments);

/// Makes a test of each scene in tests/forms/scripts.
void registerScripts();

}  // namespace zelkor::test
