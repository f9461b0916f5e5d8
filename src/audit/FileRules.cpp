#include "audit/CheckRule.h"

// The files themselves. What finds these is FileCheck.

namespace zelkor {
namespace {

constexpr CheckRule kRules[] = {
    {.code = "F01",
     .severity = Severity::Error,
     .meaning = "数据文件损坏：数据库引擎自己的检查或读出内容时发现问题",
     .remedy = "停止使用，从备份恢复；只是索引损坏时，用 zelkorctl copy 复制一份，索引会重新建立"},
    {.code = "F02", .severity = Severity::Error, .meaning = "缺少表", .remedy = "从备份恢复"},
    {.code = "F03",
     .severity = Severity::Error,
     .meaning = "缺少列，或列的类型不同",
     .remedy = "旧账套运行 zelkorctl renew 更新；否则从备份恢复"},
    {.code = "F04",
     .severity = Severity::Warning,
     .meaning = "缺少索引",
     .remedy = "旧账套运行 zelkorctl renew 更新；否则用 zelkorctl sql 执行所示语句，或用 zelkorctl copy "
               "复制一份"},
    {.code = "F05",
     .severity = Severity::Error,
     .meaning = "有的项目未能检查",
     .remedy = "按所示错误查明：磁盘已满时腾出空间，与服务器的连接中断时，再检查一次；数据有错、表被手工改动"
               "过时从备份恢复"},
};

}  // namespace

std::span<const CheckRule> fileRules() {
  return kRules;
}

}  // namespace zelkor
