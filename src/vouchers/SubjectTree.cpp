#include "vouchers/SubjectTree.h"

#include <set>

#include "base/Conversion.h"
#include "base/Text.h"
#include "store/engine/Statement.h"

namespace zelkor {
namespace {

constexpr std::string_view kClasses = "资产|负债|权益|成本|损益";
constexpr std::string_view kUsed = "常用";

TreeRow head(const std::string& name) {
  return {std::string("t").append(name), {}, name};
}

TreeRow subjectRow(const Recordset& subject, std::string_view keyPrefix, std::string parentKey) {
  const std::string code = subject.TextOrEmpty("ccode");
  return {std::string(keyPrefix) + code, std::move(parentKey), code + " " + subject.TextOrEmpty("ccode_name"),
          code};
}

/// Length of the codes of each level, from level 1 at index 0.
std::vector<std::size_t> codeLengths(std::string_view rule) {
  std::vector<std::size_t> lengths;
  std::size_t sum = 0;
  for (const char digit : rule) {
    sum += static_cast<std::size_t>(Val(std::string_view(&digit, 1)));
    lengths.push_back(sum);
  }
  return lengths;
}

void addHeads(Database& data, std::vector<TreeRow>& tree) {
  tree.push_back(head(std::string(kUsed)));
  for (const std::string& name : Split(kClasses, '|')) tree.push_back(head(name));
  Recordset classes = data.OpenRecordset("select cclass from code group by cclass  ");
  for (; !classes.Eof(); classes.MoveNext()) {
    const std::string name = classes.TextOrEmpty("cclass");
    if (kClasses.find(name) == std::string_view::npos) tree.push_back(head(name));
  }
}

void addUsed(Database& data, std::string_view user, std::string_view filter, std::vector<TreeRow>& tree) {
  std::string statement = sql(
      "Select CCode_Name,Code.CCode From Code,GL_MCodeUsed Where Code.CCode=GL_MCodeUsed.CCode And CUser='",
      user, "'");
  if (!filter.empty()) statement += sql(" And ", filter);
  Recordset subjects = data.OpenRecordset(statement + " Order by Code.CCode Asc");
  for (; !subjects.Eof(); subjects.MoveNext())
    tree.push_back(subjectRow(subjects, "tt", head(std::string(kUsed)).key));
}

/// The subject of the level above; the class where a filter has left that one out. `keys` are those of the
/// rows so far: a subject of a class without a head is a head itself.
std::string parentKeyOf(const Recordset& subject, const std::vector<std::size_t>& lengths,
                        const std::set<std::string>& keys) {
  const auto level = static_cast<std::size_t>(subject.Fields("IGrade").numberOrZero());
  if (level > 1 && level - 2 < lengths.size()) {
    const std::string above = std::string("t").append(Left(subject.TextOrEmpty("ccode"), lengths[level - 2]));
    if (keys.contains(above)) return above;
  }
  const std::string headKey = head(subject.TextOrEmpty("CClass")).key;
  return keys.contains(headKey) ? headKey : std::string();
}

}  // namespace

std::string subjectFilter(const SubjectFlags& ticked) {
  std::string filter;
  for (std::size_t i = 0; i < ticked.size(); ++i) {
    if (!ticked[i] || kSubjectProperties[i].flag.empty()) continue;
    filter += sql(filter.empty() ? "" : " And ", kSubjectProperties[i].flag, "=True");
  }
  return filter;
}

std::optional<std::vector<TreeRow>> subjectTree(Database& data, std::string_view user,
                                                std::string_view filter) {
  const Recordset definition = data.OpenRecordset("select * from gradedef where keyword='code'");
  const std::string rule = definition.Eof() ? std::string() : definition.TextOrEmpty("CODINGRULE");
  if (rule.empty()) return std::nullopt;
  const std::vector<std::size_t> lengths = codeLengths(rule);
  std::vector<TreeRow> tree;
  addHeads(data, tree);
  addUsed(data, user, filter, tree);
  const std::string where = filter.empty() ? std::string() : sql(" Where ", filter);
  Recordset subjects = data.OpenRecordset(sql("Select * From Code ", where, " Order By CCode Asc"));
  std::set<std::string> keys;
  for (const TreeRow& row : tree) keys.insert(row.key);
  for (; !subjects.Eof(); subjects.MoveNext()) {
    tree.push_back(subjectRow(subjects, "t", parentKeyOf(subjects, lengths, keys)));
    keys.insert(tree.back().key);
  }
  return tree;
}

SubjectFlags subjectFlags(Database& data, std::string_view nodeText) {
  SubjectFlags flags{};
  const std::string code = pickedSubject(nodeText).code;
  if (code.empty()) return flags;
  const Recordset subject = data.OpenRecordset(sql("Select * From Code Where CCode='", code, "'"));
  if (subject.Eof()) return flags;
  for (std::size_t i = 0; i < flags.size(); ++i) {
    const std::string_view flag = kSubjectProperties[i].flag;
    flags[i] = !flag.empty() && subject.Fields(flag).numberOrZero() != 0;
  }
  return flags;
}

PickedSubject pickedSubject(std::string_view nodeText) {
  const std::size_t blank = nodeText.find(' ');
  if (blank == std::string_view::npos) return {{}, {}, std::string(nodeText)};
  return {std::string(nodeText.substr(0, blank)), std::string(nodeText.substr(blank + 1)),
          std::string(nodeText)};
}

bool keepSubjectAsUsed(Database& data, std::string_view user, std::string_view code) {
  const Recordset kept =
      data.OpenRecordset(sql("Select * From GL_MCodeUsed Where CUser='", user, "' And CCode='", code, "'"));
  if (!kept.Eof()) return false;
  data.Execute(sql("Insert Into GL_MCodeused (CUser,CCode) Values('", user, "','", code, "')"));
  return data.RecordsAffected() > 0;
}

}  // namespace zelkor
