#include "store/CaseFiles.h"
#include "store/dialect/CatalogueFile.h"
#include "store/engine/BothEngines.h"

// Each file of tests/store/expressions lists what an engine is asked, and <name>.results keeps what every
// engine answers. The tables of the catalogue are there, empty.
//
//   [tables]   statements that make ready
//   [values]   constants and columns of the table `one`
//   [each]     expressions that are asked with each of these values in place of {}
//   [alone]    expressions
//   [queries]  statements
//   [kept]     columns of the table `kept`, into which each of the values is stored, as it is and reckoned
namespace zelkor::test {
namespace {

class ExpressionTest : public testing::TestWithParam<std::string> {
 protected:
  void read(const std::string& line) {
    if (line.starts_with('[') && line.ends_with(']')) {
      section_ = line;
      if (section_ == "[values]") values_.clear();
    } else if (section_ == "[tables]") {
      db_.Execute(line);
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
    db_.Execute("delete from kept");
    db_.Execute("insert into kept (" + columns + ") values (" + constants + ")");
    db_.Execute("insert into kept (" + columns + ") select " + reckoned + " from one");
    tell(value, "select " + columns + " from kept");
  }

  void tell(const std::string& question, const std::string& statement) {
    std::string outcome = BothEngines::outcomeOf(db_, statement);
    if (outcome.ends_with('\n')) outcome.pop_back();
    std::ranges::replace(outcome, '\n', ';');
    answers += question + '\t' + outcome + '\n';
  }

  dialect::test::CatalogueFile file_;
  DbEngine engine_;
  Database db_ = engine_.OpenDatabase(file_.path());
  std::string section_;
  std::vector<std::string> values_;
};

TEST_P(ExpressionTest, HasTheSameValueOnEveryEngine) {
  for (const std::string& line : linesOf("expressions", GetParam())) read(line);
  expectGolden("store/expressions/" + GetParam() + ".results", answers);
}

INSTANTIATE_TEST_SUITE_P(Files, ExpressionTest, testing::ValuesIn(caseFiles("expressions")), nameOfFile);

}  // namespace
}  // namespace zelkor::test
