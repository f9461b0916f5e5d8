#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <sstream>

#include "store/engine/BothEngines.h"
#include "support/Paths.h"

// Each file of tests/store/expressions lists what an engine is asked, and <name>.results keeps what every
// engine answers. With ZELKOR_REWRITE_GOLDEN set, the answers of a file are written there instead of being
// compared.
//
//   [tables]   statements that make ready
//   [values]   constants and columns of the table `one`
//   [each]     expressions that are asked with each of these values in place of {}
//   [alone]    expressions
//   [queries]  statements
//   [kept]     columns of the table `kept`, into which each of the values is stored, as it is and reckoned
namespace zelkor::test {
namespace {

namespace fs = std::filesystem;

fs::path folder() {
  return testFolder() / "store" / "expressions";
}

std::vector<std::string> names() {
  std::vector<std::string> names;
  for (const auto& entry : fs::directory_iterator(folder()))
    if (entry.path().extension() == ".txt") names.push_back(entry.path().stem().string());
  std::ranges::sort(names);
  return names;
}

std::string contentOf(const fs::path& path) {
  std::ostringstream content;
  content << std::ifstream(path).rdbuf();
  return content.str();
}

class ExpressionTest : public StoreTest, public testing::WithParamInterface<std::string> {
 protected:
  void read(const std::string& line) {
    if (line.empty()) return;
    if (line.starts_with('[') && line.ends_with(']')) {
      section_ = line;
      if (section_ == "[values]") values_.clear();
    } else if (section_ == "[tables]") {
      db.Execute(line);
    } else if (section_ == "[values]") {
      values_.push_back(line);
    } else if (section_ == "[each]") {
      for (const std::string& value : values_) ask(filled(line, value));
    } else if (section_ == "[alone]") {
      ask(line);
    } else if (section_ == "[kept]") {
      for (const std::string& value : values_) keep(line, value);
    } else {
      tell(line, line);
    }
  }

  std::string answers;

 private:
  static std::string filled(std::string expression, const std::string& value) {
    for (std::size_t at = expression.find("{}"); at != std::string::npos; at = expression.find("{}"))
      expression.replace(at, 2, value);
    return expression;
  }

  void ask(const std::string& expression) { tell(expression, "select " + expression + " from one"); }

  void keep(const std::string& columns, const std::string& value) {
    std::string constants;
    std::string reckoned;
    for (auto left = std::ranges::count(columns, ',') + 1; left > 0; --left) {
      constants += (constants.empty() ? "" : ",") + value;
      reckoned += (reckoned.empty() ? "" : ",") + ("iif(1=1," + value + ",null)");
    }
    db.Execute("delete from kept");
    db.Execute("insert into kept (" + columns + ") values (" + constants + ")");
    db.Execute("insert into kept (" + columns + ") select " + reckoned + " from one");
    tell(value, "select " + columns + " from kept");
  }

  void tell(const std::string& question, const std::string& statement) {
    std::string outcome = BothEngines::outcomeOf(db, statement);
    if (outcome.ends_with('\n')) outcome.pop_back();
    std::ranges::replace(outcome, '\n', ';');
    answers += question + '\t' + outcome + '\n';
  }

  std::string section_;
  std::vector<std::string> values_;
};

TEST_P(ExpressionTest, HasTheSameValueOnEveryEngine) {
  std::ifstream questions(folder() / (GetParam() + ".txt"));
  for (std::string line; std::getline(questions, line);) read(line);
  const fs::path results = folder() / (GetParam() + ".results");
  if (std::getenv("ZELKOR_REWRITE_GOLDEN") != nullptr && !onServer()) {
    std::ofstream(results) << answers;
  } else {
    EXPECT_EQ(answers, contentOf(results));
  }
}

INSTANTIATE_TEST_SUITE_P(Files, ExpressionTest, testing::ValuesIn(names()), [](const auto& file) {
  std::string name = file.param;
  std::ranges::replace(name, '-', '_');
  return name;
});

}  // namespace
}  // namespace zelkor::test
