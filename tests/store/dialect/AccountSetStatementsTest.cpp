#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <sstream>
#include <string>
#include <vector>

#include "store/accountset/DbEngine.h"
#include "support/AccountSetCopy.h"
#include "support/Paths.h"

namespace zelkor::test {
namespace {

namespace fs = std::filesystem;

std::string lower(std::string text) {
  for (char& character : text)
    character = static_cast<char>(std::tolower(static_cast<unsigned char>(character)));
  return text;
}

void runToTheEnd(Database& database, const std::string& statement) {
  const std::string text = lower(statement);
  const bool isQuery = text.find_first_not_of(' ') == text.find("select") && text.find(" into ") == text.npos;
  if (!isQuery) return database.Execute(statement);
  for (Recordset rows = database.OpenRecordset(statement); !rows.Eof(); rows.MoveNext())
    for (std::size_t i = 0; i < rows.FieldCount(); ++i) (void)rows.Fields(i);
}

bool readsSystemFile(const std::string& statement) {
  return lower(statement).find("from za_") != std::string::npos;
}

std::vector<fs::path> statementFiles() {
  std::vector<fs::path> files;
  for (const auto& entry : fs::directory_iterator(test::testFolder() / "store" / "golden"))
    if (entry.path().stem().string().starts_with("statements-") && entry.path().extension() == ".txt")
      files.push_back(entry.path());
  std::sort(files.begin(), files.end());
  return files;
}

class AccountSetStatements : public testing::TestWithParam<fs::path> {};

// Every statement that the system issues finds its tables and columns in a new account set, in the order in
// which they come; those that must fail do.
TEST_P(AccountSetStatements, FindWhatTheyName) {
  const TempDir directory;
  const AccountSetCopy files(directory.path());
  DbEngine engine;
  Database data = engine.OpenDatabase((directory / "ZkData.Mdb").string());
  Database system = engine.OpenDatabase((directory / "ZkSystem.Mdb").string());
  const bool refused = GetParam().stem() == "statements-refused";

  std::istringstream statements(readFile(GetParam()));
  for (std::string statement; std::getline(statements, statement);) {
    if (statement.empty()) continue;
    std::string failure;
    try {
      runToTheEnd(readsSystemFile(statement) ? system : data, statement);
    } catch (const RuntimeError& error) {
      failure = std::to_string(error.number()) + " " + error.what();
    }
    EXPECT_EQ(!failure.empty(), refused) << statement << "\n" << failure;
  }
}

INSTANTIATE_TEST_SUITE_P(Golden, AccountSetStatements, testing::ValuesIn(statementFiles()),
                         [](const auto& file) {
                           std::string name = file.param.stem().string();
                           std::replace(name.begin(), name.end(), '-', '_');
                           return name;
                         });

}  // namespace
}  // namespace zelkor::test
