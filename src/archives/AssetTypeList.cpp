#include "archives/AssetTypeList.h"

#include "base/Conversion.h"
#include "base/Format.h"
#include "store/engine/Statement.h"

namespace zelkor {

namespace {

constexpr std::string_view kRootCode = "&";

std::string listStatement(std::string_view selectedCode) {
  const std::string_view columns =
      "select a.*,b.sName as sZJFFMC from fa_AssetTypes a left join fa_Depreciations b on "
      "a.sDeprMethodNum=b.sID ";
  if (selectedCode == kRootCode) return sql(columns, "where iLevel<=1 order by a.sNum");
  return sql(columns, "where a.sNum like '", selectedCode, "*' order by a.sNum");
}

std::string indentedCode(const Recordset& type) {
  const auto level = static_cast<std::size_t>(type.Fields("iLevel").numberOrZero());
  return std::string(level > 1 ? 2 * (level - 1) : 0, ' ') + type.TextOrEmpty("sNum");
}

std::string stateCaption(const Recordset& type, const std::array<std::string, 4>& deprStates) {
  const auto rule = static_cast<std::size_t>(type.Fields("iDeprType").numberOrZero());
  return rule < deprStates.size() ? deprStates[rule] : std::string();
}

}  // namespace

TextGrid assetTypeList(Database& database, std::string_view selectedCode,
                       const std::array<std::string, 4>& deprStates) {
  TextGrid grid;
  grid.setHeader("类别编码|类别名称|使用年限|净残值率|计量单位|计提属性|折旧方法|卡片样式");
  Recordset types = database.OpenRecordset(listStatement(selectedCode));
  for (; !types.Eof(); types.MoveNext()) {
    if (types.TextOrEmpty("sNum") == kRootCode) continue;
    grid.addRow({indentedCode(types), types.TextOrEmpty("sName"),
                 textOfDouble(types.Fields("iLife").numberOrZero() / 12),
                 Format(types.Fields("dblBVRate").numberOrZero() * 100, "0.00") + "%",
                 types.TextOrEmpty("sUnit"), stateCaption(types, deprStates), types.TextOrEmpty("sZJFFMC"),
                 types.TextOrEmpty("sModelID") == "1" ? "通用样式" : ""});
  }
  return grid;
}

}  // namespace zelkor
