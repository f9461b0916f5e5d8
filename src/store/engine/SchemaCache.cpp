#include "store/engine/SchemaCache.h"

#include <algorithm>
#include <utility>

#include "base/Text.h"

namespace zelkor {
namespace {

bool isOfWord(char c) {
  return c == '_' || (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') ||
         static_cast<unsigned char>(c) >= 0x80;
}

/// Finds in a statement, or the name of a table alone, what stands where tables are named.
class TableNames {
 public:
  explicit TableNames(std::string_view sql) : isExpected_(sql.find(' ') == std::string_view::npos) {
    for (std::size_t i = 0; i < sql.size();) {
      if (sql[i] == '\'' || sql[i] == '"') {
        i = std::min(sql.find(sql[i], i + 1), sql.size() - 1) + 1;
      } else if (!isOfWord(sql[i])) {
        if (sql[i] == ',') isExpected_ = isInList_;
        ++i;
      } else {
        const std::size_t start = i;
        while (i < sql.size() && isOfWord(sql[i])) ++i;
        take(asciiLower(sql.substr(start, i - start)));
      }
    }
  }
  std::vector<std::string> names;  // in lower case

 private:
  void take(std::string word) {
    const bool opensList = word == "from" || word == "join";
    if (opensList || word == "into" || word == "update") {
      isExpected_ = true;
      isInList_ = opensList;
      return;
    }
    if (word == "select" || word == "where" || word == "order" || word == "group") isInList_ = false;
    if (std::exchange(isExpected_, false) && word != "select") names.push_back(std::move(word));
  }

  bool isExpected_;
  bool isInList_ = false;  // of tables, which commas part
};

}  // namespace

const dialect::TableInfo* SchemaCache::table(std::string_view name) const {
  std::string key = asciiLower(name);
  auto known = tables_.find(key);
  if (known == tables_.end() && ++read_ == kFewTables) {
    for (dialect::TableInfo& info : engine_.tableInfos()) {
      std::string found = asciiLower(info.name);
      tables_.emplace(std::move(found), Known{std::move(info)});
    }
    known = tables_.find(key);
  }
  if (known == tables_.end()) {
    std::optional<dialect::TableInfo> info = engine_.tableInfo(name);
    if (!info) return nullptr;
    known = tables_.emplace(std::move(key), Known{std::move(*info)}).first;
  }
  ++known->second.asked;
  return &known->second.info;
}

void SchemaCache::foresee(const std::vector<std::string>& statements) {
  std::vector<std::string> names;
  for (const std::string& sql : statements)
    for (std::string& name : TableNames(sql).names)
      if (!tables_.contains(name) && looked_.insert(name).second) names.push_back(std::move(name));
  if (names.empty()) return;
  for (dialect::TableInfo& info : engine_.tableInfos(names)) {
    std::string found = asciiLower(info.name);
    tables_.emplace(std::move(found), Known{std::move(info)});
  }
}

bool SchemaCache::forgetUnlessUsed(std::string_view name) {
  const auto known = tables_.find(asciiLower(name));
  if (known == tables_.end()) return true;
  if (known->second.asked > 1) return false;
  tables_.erase(known);
  return true;
}

}  // namespace zelkor
