#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "base/RuntimeError.h"
#include "store/dialect/CatalogueFile.h"
#include "store/dialect/GoldenPrinter.h"
#include "store/dialect/Translate.h"
#include "store/engine/Binding.h"
#include "store/engine/SchemaCache.h"
#include "support/Paths.h"

// Each <name>.txt lists statements, one a line; <name>.golden keeps their translations. With
// ZELKOR_REWRITE_GOLDEN set, the translations found are written there instead of being compared. Every
// translation for SQLite is run on a data file with the catalogue's tables.
namespace zelkor::dialect::test {
namespace {

namespace fs = std::filesystem;

fs::path goldenDirectory() {
  return zelkor::test::testFolder() / "store" / "golden";
}

std::vector<std::string> goldenNames() {
  std::vector<std::string> names;
  for (const auto& entry : fs::directory_iterator(goldenDirectory()))
    if (entry.path().extension() == ".txt") names.push_back(entry.path().stem().string());
  std::ranges::sort(names);
  return names;
}

std::vector<std::string> linesOf(const fs::path& path) {
  std::ifstream file(path);
  std::vector<std::string> lines;
  for (std::string line; std::getline(file, line);)
    if (!line.empty()) lines.push_back(line);
  return lines;
}

std::string contentOf(const fs::path& path) {
  std::ifstream file(path);
  std::ostringstream content;
  content << file.rdbuf();
  return content.str();
}

class GoldenTest : public testing::TestWithParam<std::string> {
 protected:
  std::string entry(const std::string& line) {
    const SchemaCache schema(engine);
    if (const std::size_t tab = line.find('\t'); tab != std::string::npos)
      return goldenSearch(line.substr(0, tab), line.substr(tab + 1), schema);
    return goldenEntry(line, schema);
  }

  void runText(const std::string& sql, const Translation& translation, const Shape& shape) {
    const auto statement = engine.prepare(sql);
    bindSlots(*statement, translation.slots, shape.literals);
    while (statement->step()) continue;
  }

  void runQuery(const Translation& translation, const Shape& shape) {
    const Query& query = *translation.query;
    const std::vector<std::size_t> columns = allColumns(query);
    runText(query.rows(columns, Query::Form::Plain), translation, shape);
    if (query.guard()) runText(query.rows(columns, Query::Form::Fast), translation, shape);
    if (!query.keyed()) return;
    runText(query.rows({}, Query::Form::Plain), translation, shape);
    runText(query.rowByKey(columns), translation, shape);
  }

  void run(const std::string& line) {
    const SchemaCache schema(engine);
    const std::size_t tab = line.find('\t');
    const std::string statement = line.substr(0, tab);
    Shape shape;
    shapeOf(statement, shape);
    const Translation translation = translate(statement, shape, schema, engine.words());
    if (translation.guard) runText(*translation.guard, {}, shape);
    if (tab != std::string::npos)
      return runText(translation.query->keysWhere(line.substr(tab + 1)), translation, shape);
    if (translation.query) return runQuery(translation, shape);
    for (const std::string& sql : translation.sql) runText(sql, translation, shape);
    if (!translation.fastSql.empty()) (void)engine.prepare(translation.fastSql.back());
  }

  CatalogueFile file;
  Engine& engine = file.engine();
};

TEST_P(GoldenTest, TranslatesAndRuns) {
  const fs::path golden = goldenDirectory() / (GetParam() + ".golden");
  std::string found;
  for (const std::string& line : linesOf(goldenDirectory() / (GetParam() + ".txt"))) {
    const std::string one = entry(line);
    found += found.empty() ? one : "\n" + one;
    if (one.find("\n  error: ") != std::string::npos) continue;
    try {
      run(line);
    } catch (const RuntimeError& error) {
      ADD_FAILURE() << one << error.number() << " " << error.what();
    }
  }
  if (zelkor::test::onServer()) return;  // the texts are compared once; here they have run
  if (std::getenv("ZELKOR_REWRITE_GOLDEN") != nullptr) {
    std::ofstream(golden) << found;
  } else {
    EXPECT_EQ(found, contentOf(golden));
  }
}

INSTANTIATE_TEST_SUITE_P(Files, GoldenTest, testing::ValuesIn(goldenNames()), [](const auto& file) {
  std::string name = file.param;
  std::ranges::replace(name, '-', '_');
  return name;
});

}  // namespace
}  // namespace zelkor::dialect::test
