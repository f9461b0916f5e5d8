#include "transfer/jet/JetSource.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "base/Text.h"
#include "transfer/jet/JetRowReader.h"

namespace zelkor {
namespace {

using dialect::ColumnType;
using jet::Object;
using jet::ObjectKind;

constexpr int kUsualCodePage = 936;

std::unique_ptr<jet::TextDecoder> decoderFor(const jet::JetFile& file, const std::string& charset) {
  if (!file.layout().isJet3) return jet::jet4Texts();
  return jet::jet3Texts(charset.empty() ? JetSource::kUsualCharset : charset);
}

bool knowsAnyOf(const std::vector<TableDef>& catalogue, const std::vector<TableDef>& tables) {
  return std::any_of(tables.begin(), tables.end(), [&](const TableDef& table) {
    return std::any_of(catalogue.begin(), catalogue.end(), [&](const TableDef& known) {
      return dialect::sameName(known.info.name, table.info.name);
    });
  });
}

std::string joined(const std::vector<std::string>& names) {
  std::string text;
  for (const std::string& name : names) text += (text.empty() ? "" : "、") + name;
  return text;
}

}  // namespace

JetSource::JetSource(const std::filesystem::path& file, const std::string& charset)
    : file_(file), texts_(decoderFor(file_, charset)) {
  const std::vector<Object> objects = jet::readObjects(file_, *texts_, problems_);
  if (file_.endsWithinPage()) notes_.push_back("文件末尾有不完整的一页；那里没有数据");
  noteCharset(charset);
  planTables(objects);
  noteObjects(objects);
  noteMissingTables();
}

void JetSource::planTables(const std::vector<Object>& objects) {
  for (const Object& object : objects) {
    switch (object.kind) {
      case ObjectKind::Table:
        planTable(object);
        break;
      case ObjectKind::SystemTable:  // not carried, but what a cut-off file lacks may be theirs
        jet::readDefinition(file_, object.definition, *texts_);
        break;
      case ObjectKind::LinkedTable:
        problems_.all().push_back({object.name, 0, "",
                                   "是链接表，行在别处（" + object.otherFile + " 的 " + object.otherTable +
                                       "），未导入；请导入那个文件"});
        break;
      default:
        break;
    }
  }
  for (const jet::PlannedTable& plan : plans_) tables_.push_back(plan.table);
}

void JetSource::planTable(const Object& object) {
  const auto twin = std::find_if(plans_.begin(), plans_.end(), [&](const jet::PlannedTable& plan) {
    return dialect::sameName(plan.table.info.name, object.name);
  });
  const auto tell = [&](const std::string& column, const char* reason) {
    problems_.all().push_back({object.name, 0, column, reason});
  };
  if (twin != plans_.end()) return tell("", "表名重复，后一张表未导入");
  if (!object.nameWhole) tell("", "表名含有不能解读的字符，以 U+FFFD 代替");
  jet::Definition definition = jet::readDefinition(file_, object.definition, *texts_);
  for (const std::string& name : definition.unreadableNames)
    tell(name, "名称含有不能解读的字符，以 U+FFFD 代替");
  plans_.push_back(jet::planTable(file_, object.name, std::move(definition), {problems_.all(), notes_}));
  if (plans_.back().columns.empty()) {
    tell("", "没有可以导入的列，未导入");
    plans_.pop_back();
  }
}

void JetSource::noteCharset(const std::string& charset) {
  if (!file_.layout().isJet3) {
    if (!charset.empty()) notes_.push_back("Jet 4 文件的文字是 Unicode，--charset 不起作用");
    return;
  }
  const int codePage = file_.codePage();
  if (charset.empty() && codePage != 0 && codePage != kUsualCodePage)
    notes_.push_back("文件头记的代码页是 " + std::to_string(codePage) + "，文字按 " + kUsualCharset +
                     " 解读；如不对，请用 --charset 指明");
}

void JetSource::noteObjects(const std::vector<Object>& objects) {
  constexpr std::pair<ObjectKind, const char*> kinds[] = {{ObjectKind::Query, "查询"},
                                                          {ObjectKind::Form, "窗体"},
                                                          {ObjectKind::Report, "报表"},
                                                          {ObjectKind::Macro, "宏"},
                                                          {ObjectKind::Module, "模块"},
                                                          {ObjectKind::Relation, "关系"},
                                                          {ObjectKind::DeletedTable, "已删除的表"}};
  for (const auto& [kind, word] : kinds) {
    std::vector<std::string> names;
    for (const Object& object : objects)
      if (object.kind == kind) names.push_back(object.name);
    if (names.empty()) continue;
    notes_.push_back(std::string("不导入的") + word + " " + std::to_string(names.size()) + " 个：" +
                     joined(names));
  }
}

// The tables of a whole account set lie in two files; each is measured by the tables of its kind.
void JetSource::noteMissingTables() {
  for (const std::vector<TableDef>* catalogue : {&dataTables(), &systemTables()}) {
    if (!knowsAnyOf(*catalogue, tables_)) continue;
    std::vector<std::string> missing;
    for (const TableDef& known : *catalogue)
      if (!knowsAnyOf({known}, tables_)) missing.push_back(known.info.name);
    if (!missing.empty())
      notes_.push_back("账套还需要而文件里没有的表 " + std::to_string(missing.size()) + " 张：" +
                       joined(missing));
  }
}

jet::PlannedTable& JetSource::planOf(const TableDef& table) {
  return *std::find_if(plans_.begin(), plans_.end(), [&](const jet::PlannedTable& plan) {
    return plan.table.info.name == table.info.name;
  });
}

std::unique_ptr<RowReader> JetSource::rows(const TableDef& table) {
  return std::make_unique<jet::JetRowReader>(file_, planOf(table), *texts_, problems_);
}

std::int64_t JetSource::lastCounter(const TableDef& table) {
  const jet::PlannedTable& plan = planOf(table);
  const auto& columns = table.info.columns;
  for (std::size_t i = 0; i < columns.size(); ++i) {
    const auto& source = plan.columns[i].source;
    if (columns[i].type == ColumnType::Counter && source && plan.definition.columns[*source].counter)
      return std::max<std::int64_t>(plan.definition.lastCounter, 0);
  }
  return 0;
}

}  // namespace zelkor
