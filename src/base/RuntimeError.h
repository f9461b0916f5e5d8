#pragma once

#include <stdexcept>
#include <string>

namespace zelkor {

/// Numbers of the runtime's and the engine's errors that the program raises itself.
enum class ErrorNumber : int {
  InvalidProcedureCall = 5,
  Overflow = 6,
  SubscriptOutOfRange = 9,
  DivisionByZero = 11,
  TypeMismatch = 13,
  DeviceIo = 57,
  InvalidUseOfNull = 94,
  TableAlreadyExists = 3010,
  UpdateWithoutEdit = 3020,
  NoCurrentRecord = 3021,
  DuplicateKey = 3022,
  FileNotFound = 3024,
  NoTransaction = 3034,
  FileLocked = 3045,
  CannotOpenReadOnly = 3051,
  TooFewParameters = 3061,
  DuplicateDestination = 3063,
  CannotExecuteSelect = 3065,
  NoQueryInput = 3067,
  OperationNotUpdatable = 3073,
  SyntaxInQuery = 3075,
  CannotOpenTableOrQuery = 3078,
  AmbiguousColumn = 3079,
  UndefinedFunction = 3085,
  OrderConflictsWithDistinct = 3093,
  AggregateInWhere = 3096,
  CannotGroupOnMemo = 3119,
  ColumnNotGrouped = 3122,
  UnknownTargetColumn = 3127,
  SyntaxInInsert = 3134,
  FieldNotUpdatable = 3164,
  RecordDeleted = 3167,
  DiskFull = 3183,
  DuplicateColumn = 3191,
  DatabaseAlreadyExists = 3204,
  OperationNotSupported = 3251,
  ItemNotInCollection = 3265,
  IndexAlreadyExists = 3284,
  SubqueryColumnCount = 3306,
  UnionColumnCount = 3307,
  RequiredField = 3314,
  UnrecognizedFormat = 3343,
  ColumnCountDiffers = 3346,
  OrderNotSelected = 3351,
  NoSuchIndex = 3372,
  TableDoesNotExist = 3376,
  ObjectClosed = 3420,
  DataTypeConversion = 3421,
};

/// A failure that the program does not foresee at the place where it happens: the platform's error
/// number with its description in Chinese. Uncaught, it ends the process with the runtime's report.
class RuntimeError : public std::runtime_error {
 public:
  RuntimeError(ErrorNumber number, const std::string& description)
      : std::runtime_error(description), number_(static_cast<int>(number)) {}
  /// An error whose description is the platform's standing text for its number.
  explicit RuntimeError(ErrorNumber number);

  int number() const { return number_; }
  bool is(ErrorNumber number) const { return number_ == static_cast<int>(number); }

 private:
  int number_;
};

/// Thrown by the end-of-program statement; caught in one place, which ends the process with `status`.
struct EndProgram {
  int status = 0;
};

}  // namespace zelkor
