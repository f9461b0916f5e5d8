#include "forms/ScriptTest.h"

#include <deque>

#include "base/Text.h"
#include "forms/Keyboard.h"
#include "support/Paths.h"

namespace zelkor::test {

ScriptTest::ScriptTest(const Script& script, const ScriptLine& scene) : script_(script), scene_(scene) {
  context.gOpArgs.setZkDataPath(context.gstrZtFile);
  context.gOpArgs.setOpDate(context.gdOpDate);
  context.gOpArgs.setUser(context.gstrUser);
  if (inRealWindow()) dialogs.onShown(answerOnScreen);
}

void ScriptTest::TestBody() {
  play(script_.given);
  play(scene_.below);
}

void ScriptTest::play(const std::vector<ScriptLine>& lines) {
  for (const ScriptLine& line : lines) {
    if (HasFatalFailure()) return;
    const testing::ScopedTrace trace(script_.path.c_str(), line.number, line.text);
    ++depth_;
    play(line);
    // What was announced before an action has to come by it.
    if (--depth_ == 0 && std::exchange(acted_, false)) {
      while (inRealWindow() && modalFormsToCome() > 0) settle();
      EXPECT_TRUE(dialogs.allShown()) << "a box is still to come";
    }
  }
}

void ScriptTest::play(const ScriptLine& line) {
  std::string rest = line.text;
  std::string verb = takeWord(rest);
  if (const auto word = script_.words.find(verb); word != script_.words.end())
    return play(filled(word->second.below, partsOf(rest)));
  const std::size_t colon = std::min(verb.find(':'), verb.size());
  const std::string option = verb.substr(std::min(colon + 1, verb.size()));
  verb.resize(colon);
  const Arguments arguments{option, rest, partsOf(rest), line.below};
  for (const auto* verbs : {&actionVerbs(), &preparingVerbs(), &lookingVerbs()}) {
    const auto found = verbs->find(verb);
    if (found == verbs->end()) continue;
    found->second(*this, arguments);
    acted_ = acted_ || verbs == &actionVerbs();
    return;
  }
  throw std::runtime_error("no verb " + verb);
}

void ScriptTest::playOn(QWidget& modal, const std::vector<ScriptLine>& lines) {
  forms_.push_back(&modal);
  try {
    play(lines);
  } catch (const std::exception& error) {
    ADD_FAILURE() << error.what();
  }
  forms_.pop_back();
}

QWidget& ScriptTest::form() const {
  if (!forms_.back()) throw std::runtime_error("no screen has been opened");
  return *forms_.back();
}

QWidget& ScriptTest::windowInFront() const {
  QWidget* modal = QApplication::activeModalWidget();
  return modal ? *modal : form();
}

std::vector<std::string> Arguments::words() const {
  return Split(part(0), ' ');
}

std::string Arguments::word(std::size_t index) const {
  const auto all = words();
  return index < all.size() ? all[index] : "";
}

std::string Arguments::behind(std::size_t words) const {
  std::string rest = part(0);
  for (std::size_t i = 0; i < words; ++i) takeWord(rest);
  return withoutQuotes(rest);
}

std::vector<QWidget*> windowsOf(const std::string& name) {
  std::vector<QWidget*> windows;
  for (QWidget* window : QApplication::topLevelWidgets())
    if (window->isVisible() && window->objectName().toStdString() == name) windows.push_back(window);
  return windows;
}

void registerScripts() {
  static std::deque<Script> scripts;
  for (const auto& entry : std::filesystem::directory_iterator(testFolder() / "forms/scripts")) {
    if (entry.path().extension() != ".txt") continue;
    const Script& script = scripts.emplace_back(readScript(entry.path()));
    for (const ScriptLine& scene : script.scenes) {
      testing::RegisterTest(entry.path().stem().c_str(), scene.text.c_str(), nullptr, nullptr,
                            entry.path().c_str(), scene.number,
                            [&script, &scene] { return new ScriptTest(script, scene); });
    }
  }
}

}  // namespace zelkor::test
