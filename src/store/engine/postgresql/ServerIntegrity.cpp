#include "store/engine/postgresql/ServerIntegrity.h"

#include "base/RuntimeError.h"

namespace zelkor {
namespace {

// Where the extension's functions are: its schema, and whether this user may call them.
constexpr const char* kExtension =
    "SELECT quote_ident(n.nspname)::text, bool_and(has_function_privilege(p.oid, 'EXECUTE'))::int "
    "FROM pg_extension e JOIN pg_namespace n ON n.oid = e.extnamespace JOIN pg_depend d ON d.refobjid = "
    "e.oid "
    "AND d.refclassid = 'pg_extension'::regclass AND d.classid = 'pg_proc'::regclass JOIN pg_proc p "
    "ON p.oid = d.objid WHERE e.extname = 'amcheck' AND (p.proname = 'verify_heapam' OR "
    "(p.proname = 'bt_index_check' AND p.pronargs = 2)) GROUP BY n.nspname";

constexpr const char* kIndexes =
    "SELECT c.oid::regclass::text, c.relname::text FROM pg_class c JOIN pg_am m ON m.oid = c.relam "
    "JOIN pg_index i ON i.indexrelid = c.oid WHERE m.amname = 'btree' AND i.indisvalid "
    "AND c.relnamespace = current_schema()::text::regnamespace ORDER BY c.relname";

constexpr const char* kTables =
    "SELECT c.oid::regclass::text, c.relname::text FROM pg_class c WHERE c.relkind = 'r' "
    "AND c.relnamespace = current_schema()::text::regnamespace ORDER BY c.relname";

/// What the query gives, as it is quoted and as it is told.
std::vector<std::pair<std::string, std::string>> namesOf(Engine& engine, const char* query) {
  std::vector<std::pair<std::string, std::string>> names;
  const auto rows = engine.prepare(query);
  while (rows->step()) names.emplace_back(rows->text(0), rows->text(1));
  return names;
}

/// A check that fails goes back to where the transaction stood.
template <typename Look>
void lookAt(const std::string& name, IntegrityCheck& check, Look look) {
  try {
    look();
  } catch (const RuntimeError& error) {
    check.problems.push_back(name + "：" + error.what());
  }
}

}  // namespace

IntegrityCheck serverIntegrity(Engine& engine) {
  IntegrityCheck check;
  const auto extension = engine.prepare(kExtension);
  const bool installed = extension->step();
  if (!installed || extension->integer(1) == 0) {
    check.notDone = installed ? "没有使用 amcheck 的权限" : "服务器没有安装 amcheck";
    return check;
  }
  const std::string schema(extension->text(0));
  extension->reset();
  for (const auto& [quoted, name] : namesOf(engine, kIndexes)) {
    lookAt("索引 " + name, check, [&engine, &schema, &index = quoted] {
      const auto call =
          engine.prepare("SELECT " + schema + ".bt_index_check($1::text::regclass, true)::text");
      call->bindText(1, index);
      while (call->step()) {
      }
    });
  }
  for (const auto& [quoted, name] : namesOf(engine, kTables)) {
    lookAt("表 " + name, check, [&engine, &schema, &check, &table = quoted, &told = name] {
      const auto rows =
          engine.prepare("SELECT msg::text FROM " + schema + ".verify_heapam($1::text::regclass) LIMIT 20");
      rows->bindText(1, table);
      while (rows->step()) check.problems.push_back("表 " + told + "：" + std::string(rows->text(0)));
    });
  }
  return check;
}

}  // namespace zelkor
