#include "forms/ScriptTest.h"
#include "store/engine/Statement.h"
#include "support/Golden.h"

namespace zelkor::test {
namespace {

/// Plays a scene as a program does that has just been started, and counts how often each line of it waits.
class FreshProgram : public ScriptTest {
 public:
  FreshProgram(const Script& script, const ScriptLine& scene) : ScriptTest(script, scene) {
    play(script.given);
    context.dbZKData.Close();
    context.dbZKSystem.Close();
    context.dbZKData = engine.OpenDatabase(context.gstrZtFile);
    context.dbZKSystem = engine.OpenDatabase(context.gstrZkSysFile);
  }
  /// "16 run 4", a line for each that waited.
  std::string counted(const ScriptLine& scene) {
    std::string lines;
    for (const ScriptLine& line : scene.below) {
      const std::uint64_t before = waits();
      play(std::vector<ScriptLine>{line});
      if (!line.below.empty()) continue;  // what is to be done in a window waits for that
      settle();
      lines += sql("  ", waits() - before, " ", line.text, "\n");
    }
    return lines;
  }

 private:
  std::uint64_t waits() const { return context.dbZKData.waits() + context.dbZKSystem.waits(); }
};

TEST(ScreenWaitsTest, AScreenWaitsForAServerAFewTimes) {
  if (!onServer()) GTEST_SKIP() << "needs a server";
  const Script screens = readScript(testFolder() / "forms/screens.txt");
  std::string waits;
  for (const ScriptLine& scene : screens.scenes) {
    FreshProgram program(screens, scene);
    waits += scene.text + "\n" + program.counted(scene);
  }
  expectGolden("forms/golden/waits.txt", waits);
}

}  // namespace
}  // namespace zelkor::test
