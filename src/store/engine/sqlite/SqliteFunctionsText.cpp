#include <algorithm>
#include <array>

#include "base/Format.h"
#include "base/RuntimeError.h"
#include "base/Text.h"
#include "store/engine/sqlite/LikePattern.h"
#include "store/engine/sqlite/SqliteFunctions.h"

namespace zelkor::sqlite {
namespace {

bool continues(char c) {
  return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U;
}

std::size_t countCharacters(std::string_view text) {
  return static_cast<std::size_t>(
      std::count_if(text.begin(), text.end(), [](char c) { return !continues(c); }));
}

// Byte offset of character `index`, or the length of the text.
std::size_t offsetOf(std::string_view text, std::size_t index) {
  for (std::size_t i = 0; i < text.size(); ++i)
    if (!continues(text[i]) && index-- == 0) return i;
  return text.size();
}

std::size_t lengthArgument(sqlite3_value* value) {
  const double number = numberOf(value);
  if (number < 0) throw RuntimeError(ErrorNumber::InvalidProcedureCall);
  return static_cast<std::size_t>(std::min(number + 0.5, 1e9));
}

std::size_t placeArgument(sqlite3_value* value) {
  const std::size_t place = lengthArgument(value);
  if (place == 0) throw RuntimeError(ErrorNumber::InvalidProcedureCall);
  return place;
}

void like(sqlite3_context* context, Arguments arguments) {
  if (!anyNull(arguments)) sqlite3_result_int(context, isLike(textOf(arguments[1]), textOf(arguments[0])));
}

void left(sqlite3_context* context, Arguments arguments) {
  if (anyNull(arguments)) return;
  const std::string_view text = textOf(arguments[0]);
  giveText(context, text.substr(0, offsetOf(text, lengthArgument(arguments[1]))));
}

void right(sqlite3_context* context, Arguments arguments) {
  if (anyNull(arguments)) return;
  const std::string_view text = textOf(arguments[0]);
  const std::size_t count = countCharacters(text);
  giveText(context, text.substr(offsetOf(text, count - std::min(count, lengthArgument(arguments[1])))));
}

void mid(sqlite3_context* context, Arguments arguments) {
  if (anyNull(arguments)) return;
  std::string_view text = textOf(arguments[0]);
  text.remove_prefix(offsetOf(text, placeArgument(arguments[1]) - 1));
  if (arguments.size() > 2) text = text.substr(0, offsetOf(text, lengthArgument(arguments[2])));
  giveText(context, text);
}

bool sameLetter(char a, char b) {
  return asciiLower(a) == asciiLower(b);
}

void instr(sqlite3_context* context, Arguments arguments) {
  if (anyNull(arguments)) return;
  const bool starts = arguments.size() == 3;
  const std::size_t start = starts ? placeArgument(arguments[0]) : 1;
  const std::string_view text = textOf(arguments[starts ? 1 : 0]);
  const std::string_view part = textOf(arguments[starts ? 2 : 1]);
  const auto from = text.begin() + static_cast<std::ptrdiff_t>(offsetOf(text, start - 1));
  const auto found = std::search(from, text.end(), part.begin(), part.end(), sameLetter);
  if (found == text.end() && !(part.empty() && start == 1)) return sqlite3_result_int(context, 0);
  const std::string_view before(text.data(), static_cast<std::size_t>(found - text.begin()));
  sqlite3_result_int64(context, static_cast<sqlite3_int64>(countCharacters(before)) + 1);
}

void space(sqlite3_context* context, Arguments arguments) {
  if (!anyNull(arguments)) giveText(context, std::string(lengthArgument(arguments[0]), ' '));
}

void repeated(sqlite3_context* context, Arguments arguments) {
  if (anyNull(arguments)) return;
  const std::string_view text = textOf(arguments[1]);
  if (text.empty()) throw RuntimeError(ErrorNumber::InvalidProcedureCall);
  const std::string_view first = text.substr(0, offsetOf(text, 1));
  std::string result;
  for (std::size_t i = lengthArgument(arguments[0]); i > 0; --i) result += first;
  giveText(context, result);
}

void asc(sqlite3_context* context, Arguments arguments) {
  if (anyNull(arguments)) return;
  const std::string_view text = textOf(arguments[0]);
  if (text.empty()) throw RuntimeError(ErrorNumber::InvalidProcedureCall);
  sqlite3_result_int(context, static_cast<unsigned char>(text.front()));
}

void chr(sqlite3_context* context, Arguments arguments) {
  if (anyNull(arguments)) return;
  const double code = numberOf(arguments[0]);
  if (code < 0 || code > 127) throw RuntimeError(ErrorNumber::InvalidProcedureCall);
  giveText(context, std::string(1, static_cast<char>(code)));
}

void strcomp(sqlite3_context* context, Arguments arguments) {
  if (anyNull(arguments)) return;
  const int order =
      sqlite3_stricmp(std::string(textOf(arguments[0])).c_str(), std::string(textOf(arguments[1])).c_str());
  sqlite3_result_int(context, order < 0 ? -1 : order > 0 ? 1 : 0);
}

void format(sqlite3_context* context, Arguments arguments) {
  giveText(context, Format(valueOf(arguments[0]), textOf(arguments[1])));
}

void formatDate(sqlite3_context* context, Arguments arguments) {
  const Value value = isNull(arguments[0]) ? Value() : Value(dateOf(arguments[0]));
  giveText(context, Format(value, textOf(arguments[1])));
}

constexpr std::array entries{
    FunctionEntry{"zk_like", 2, like},
    FunctionEntry{"zk_left", 2, left},
    FunctionEntry{"zk_right", 2, right},
    FunctionEntry{"zk_mid", 2, mid},
    FunctionEntry{"zk_mid", 3, mid},
    FunctionEntry{"zk_instr", 2, instr},
    FunctionEntry{"zk_instr", 3, instr},
    FunctionEntry{"zk_space", 1, space},
    FunctionEntry{"zk_string", 2, repeated},
    FunctionEntry{"zk_asc", 1, asc},
    FunctionEntry{"zk_chr", 1, chr},
    FunctionEntry{"zk_strcomp", 2, strcomp},
    FunctionEntry{"zk_strcomp", 3, strcomp},
    FunctionEntry{"zk_format", 2, format},
    FunctionEntry{"zk_format_date", 2, formatDate},
};

}  // namespace

std::span<const FunctionEntry> textFunctions() {
  return entries;
}

}  // namespace zelkor::sqlite
