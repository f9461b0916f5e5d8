#include "store/dialect/reading/ParseError.h"

#include <algorithm>
#include <string>

#include "base/RuntimeError.h"
#include "store/dialect/reading/Token.h"

namespace zelkor::dialect {
namespace {

constexpr std::size_t kLongestPiece = 200;

bool isInsert(std::string_view statement) {
  constexpr std::size_t kWordLength = 6;
  const auto start = statement.find_first_not_of(" \t\r\n");
  return start != std::string_view::npos &&
         keywordOf(statement.substr(start, kWordLength)) == Keyword::Insert;
}

std::string_view complaint(SyntaxFault fault) {
  switch (fault) {
    case SyntaxFault::MissingOperator:
      return "语法错误 (操作符丢失)";
    case SyntaxFault::Text:
      return "字符串的语法错误";
    case SyntaxFault::Date:
      return "日期的语法错误";
    case SyntaxFault::BehindEnd:
      return "SQL 语句结尾之后有多余的字符";
    case SyntaxFault::Syntax:
      break;
  }
  return "语法错误";
}

bool continuesCharacter(char c) {
  return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U;
}

// Cut between characters on both sides.
std::string_view neighbourhood(std::string_view piece, std::size_t at) {
  if (piece.size() <= kLongestPiece) return piece;
  std::size_t begin = at > kLongestPiece / 2 ? at - kLongestPiece / 2 : 0;
  while (begin < piece.size() && continuesCharacter(piece[begin])) ++begin;
  std::size_t end = std::min(begin + kLongestPiece, piece.size());
  while (end < piece.size() && continuesCharacter(piece[end])) --end;
  return piece.substr(begin, end - begin);
}

}  // namespace

void raiseSyntaxError(std::string_view statement, SyntaxFault fault, std::string_view piece, std::size_t at) {
  const std::string place = " 在查询表达式 '" + std::string(neighbourhood(piece, at)) + "' 中。";
  if (isInsert(statement)) {
    throw RuntimeError(ErrorNumber::SyntaxInInsert, "INSERT INTO 语句的语法错误。" + place);
  }
  throw RuntimeError(ErrorNumber::SyntaxInQuery, std::string(complaint(fault)) + place);
}

}  // namespace zelkor::dialect
