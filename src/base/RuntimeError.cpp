#include "base/RuntimeError.h"

namespace zelkor {
namespace {

struct StandingText {
  ErrorNumber number;
  const char* text;
};

constexpr StandingText kStandingTexts[] = {
    {ErrorNumber::InvalidProcedureCall, "无效的过程调用或参数"},
    {ErrorNumber::Overflow, "溢出"},
    {ErrorNumber::SubscriptOutOfRange, "下标越界"},
    {ErrorNumber::DivisionByZero, "除数为零"},
    {ErrorNumber::TypeMismatch, "类型不匹配"},
    {ErrorNumber::DeviceIo, "设备 I/O 错误"},
    {ErrorNumber::InvalidUseOfNull, "无效使用 Null"},
    {ErrorNumber::TableAlreadyExists, "表已存在。"},
    {ErrorNumber::UpdateWithoutEdit, "没有使用 AddNew 或 Edit 就进行 Update 或 CancelUpdate。"},
    {ErrorNumber::NoCurrentRecord, "无当前记录。"},
    {ErrorNumber::DuplicateKey, "由于将在索引、主关键字或关系中创建重复的值，请求对表的更改没有成功。"},
    {ErrorNumber::FileNotFound, "找不到文件。"},
    {ErrorNumber::NoTransaction, "试图提交或回滚事务，但没有先开始事务。"},
    {ErrorNumber::FileLocked, "不能使用文件；文件已在使用中。"},
    {ErrorNumber::CannotOpenReadOnly,
     "数据库引擎打不开文件。它已经被别的用户以独占方式打开，或没有查看数据的权限。"},
    {ErrorNumber::TooFewParameters, "参数不足。"},
    {ErrorNumber::CannotExecuteSelect, "不能执行选择查询。"},
    {ErrorNumber::OperationNotUpdatable, "操作必须使用一个可更新的查询。"},
    {ErrorNumber::SyntaxInQuery, "查询表达式中的语法错误。"},
    {ErrorNumber::CannotOpenTableOrQuery,
     "数据库引擎找不到输入表或查询。确定它是否存在，以及它的名称的拼写是否正确。"},
    {ErrorNumber::AmbiguousColumn, "字段名可能指向多个表。"},
    {ErrorNumber::UndefinedFunction, "表达式中有未定义的函数。"},
    {ErrorNumber::UnknownTargetColumn, "INSERT INTO 语句包含未知的字段名。"},
    {ErrorNumber::SyntaxInInsert, "INSERT INTO 语句的语法错误。"},
    {ErrorNumber::FieldNotUpdatable, "字段不能更新。"},
    {ErrorNumber::RecordDeleted, "记录被删除。"},
    {ErrorNumber::DiskFull, "磁盘空间不足。"},
    {ErrorNumber::DuplicateColumn, "表中的字段不能重复定义。"},
    {ErrorNumber::DatabaseAlreadyExists, "数据库已存在。"},
    {ErrorNumber::OperationNotSupported, "此类型的对象不支持该操作。"},
    {ErrorNumber::ItemNotInCollection, "在此集合中没有找到项目。"},
    {ErrorNumber::IndexAlreadyExists, "该索引已存在。"},
    {ErrorNumber::UnionColumnCount, "联合查询中的列数不匹配。"},
    {ErrorNumber::RequiredField, "字段不能包含 Null 值，必须在此字段中输入一个值。"},
    {ErrorNumber::UnrecognizedFormat, "不可识别的数据库格式。"},
    {ErrorNumber::ColumnCountDiffers, "查询值的数目与目标字段中的数目不同。"},
    {ErrorNumber::OrderNotSelected, "ORDER BY 子句与 DISTINCT 或联合查询的输出列冲突。"},
    {ErrorNumber::NoSuchIndex, "没有这样的索引。"},
    {ErrorNumber::TableDoesNotExist, "表不存在。"},
    {ErrorNumber::ObjectClosed, "对象无效或不再被设置。"},
    {ErrorNumber::DataTypeConversion, "数据类型转换错误。"},
};

const char* standingText(ErrorNumber number) {
  for (const StandingText& entry : kStandingTexts)
    if (entry.number == number) return entry.text;
  return "应用程序定义或对象定义错误";
}

}  // namespace

RuntimeError::RuntimeError(ErrorNumber number) : RuntimeError(number, standingText(number)) {}

}  // namespace zelkor
