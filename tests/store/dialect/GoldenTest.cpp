#include "base/RuntimeError.h"
#include "store/CaseFiles.h"
#include "store/dialect/CatalogueFile.h"
#include "store/dialect/GoldenPrinter.h"
#include "store/dialect/Translate.h"
#include "store/engine/Binding.h"
#include "store/engine/SchemaCache.h"

// Each <name>.txt of tests/store/golden lists statements, one a line; <name>.golden keeps their translations.
// Every translation for the engine at hand is run on a data file with the catalogue's tables.
namespace zelkor::dialect::test {
namespace {

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
  std::string found;
  for (const std::string& line : zelkor::test::linesOf("golden", GetParam())) {
    const std::string one = entry(line);
    found += found.empty() ? one : "\n" + one;
    if (one.find("\n  error: ") != std::string::npos) continue;
    try {
      run(line);
    } catch (const RuntimeError& error) {
      ADD_FAILURE() << one << error.number() << " " << error.what();
    }
  }
  // The texts are compared once; on a server they have run.
  if (!zelkor::test::onServer()) zelkor::test::expectGolden("store/golden/" + GetParam() + ".golden", found);
}

INSTANTIATE_TEST_SUITE_P(Files, GoldenTest, testing::ValuesIn(zelkor::test::caseFiles("golden")),
                         zelkor::test::nameOfFile);

}  // namespace
}  // namespace zelkor::dialect::test
