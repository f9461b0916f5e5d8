#include "startup/Arguments.h"

#include <vector>

#include "base/Conversion.h"
#include "base/Format.h"
#include "base/RuntimeError.h"
#include "base/Text.h"
#include "startup/Logs.h"
#include "startup/Strings.h"

namespace zelkor {
namespace {

/// Converts a field; the error keeps its number and says which field it was.
template <typename Convert>
auto converted(const std::string& field, const char* caption, Convert convert) {
  try {
    return convert(Value(field));
  } catch (const RuntimeError& error) {
    throw RuntimeError(static_cast<ErrorNumber>(error.number()),
                       std::string(error.what()) + "（" + caption + "：“" + field + "”）");
  }
}

void setDefaults(RunContext& context) {
  ClsOpArgs& args = context.gOpArgs;
  args.setZkDataPath(context.programFolder + "\\ZkData.Mdb");
  args.setZkSystemPath(context.programFolder + "\\ZkSystem.Mdb");
  args.setOpDate(context.clock.now());
  args.setRunType(3);
  args.setUser("");
}

const std::string& carried(const std::string& text, const char* caption) {
  if (text.find(',') == std::string::npos && Trim(text) == text) return text;
  throw RuntimeError(ErrorNumber::InvalidProcedureCall, std::string("参数串以逗号分隔，") + caption + "“" +
                                                            text + "”中有逗号或首尾有空格，不能传递");
}

}  // namespace

std::string composeArguments(const RunArguments& fields) {
  std::string text = carried(fields.dataFile, "数据文件");
  text += "," + carried(fields.user, "操作员");
  text += "," + Format(fields.date, "yyyy-mm-dd") + "," + std::to_string(fields.runType);
  text += "," + carried(fields.systemFile, "系统文件");
  return text + "," + carried(fields.account, "账套号");
}

void ReadCommandArgs(RunContext& context, const std::string& arguments) {
  std::vector<std::string> fields;
  SplitString(arguments, fields, ",", false);
  if (fields.size() - 1 < 6) {
    context.dialogs.MsgBox("传入的参数个数不正确！", Buttons::Ok, Icon::Critical, "错误");
    throw EndProgram{};
  }
  context.gstrZtFile = element(fields, 1);
  context.gstrZkSysFile = element(fields, 5);
  context.gstrAccountId = element(fields, 6);
  context.giRunType =
      converted(element(fields, 4), "第4个参数，运行类型", [](const Value& value) { return CInt(value); });
  context.gstrUser = element(fields, 2);
  context.gdOpDate =
      converted(element(fields, 3), "第3个参数，操作日期", [](const Value& value) { return CDate(value); });
}

void ParseArgs(RunContext& context, const std::string& arguments) {
  setDefaults(context);
  if (Trim(arguments).empty()) return;

  std::vector<std::string> fields;
  SplitString(arguments, fields, ",", true);
  if (fields.size() - 1 < 4) {
    WriteErrorLog(4, arguments + "传入的参数不对", "ParseArgs");
    throw EndProgram{};
  }
  ClsOpArgs& args = context.gOpArgs;
  args.setZkDataPath(element(fields, 1));
  args.setUser(element(fields, 2));
  const Value date(element(fields, 3));
  args.setOpDate(IsDate(date) ? CDate(date) : context.clock.now());
  const Value runType(element(fields, 4));
  if (IsNumeric(runType)) args.setRunType(CLng(runType));
  args.setZkSystemPath(element(fields, 5));
  if (fields.size() <= 6)
    throw RuntimeError(ErrorNumber::SubscriptOutOfRange, "下标越界（缺少第6个参数，账套号）");
  args.setAccountId(element(fields, 6));
}

}  // namespace zelkor
