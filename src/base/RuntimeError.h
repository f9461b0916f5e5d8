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
  OperationNotUpdatable = 3073,
  CannotOpenTableOrQuery = 3078,
  DuplicateKey = 3022,
  NoCurrentRecord = 3021,
  FileNotFound = 3024,
  TableAlreadyExists = 3010,
  TooFewParameters = 3061,
  NoTransaction = 3034,
  FieldNotUpdatable = 3164,
  OperationNotSupported = 3251,
  CannotExecuteSelect = 3065,
  SyntaxInQuery = 3075,
  SyntaxInInsert = 3134,
  TableDoesNotExist = 3376,
  DataTypeConversion = 3421,
  UnrecognizedFormat = 3343,
  ItemNotInCollection = 3265,
  UpdateWithoutEdit = 3020,
  RecordDeleted = 3167,
  ObjectClosed = 3420,
  DiskFull = 3183,
  FileLocked = 3045,
  CannotOpenReadOnly = 3051,
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
