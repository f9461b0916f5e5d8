#include "store/dialect/binding/functions/ServerDefinitions.h"

#include <vector>

namespace zelkor::dialect {
namespace {

// The types for which a function of that letter is defined.
std::vector<std::string_view> typesOf(char letter) {
  switch (letter) {
    case 't':
      return {"text"};
    case 'n':
      return {"double precision"};
    case 'd':
      return {"timestamp"};
    case 'c':
      return {"text", "double precision"};
    case 'm':
      return {"text", "double precision", "numeric"};
    case 's':
      return {"text", "double precision", "numeric", "bigint", "integer", "smallint"};
    default:
      return {"text", "double precision", "timestamp"};
  }
}

bool takesNull(std::string_view letters) {
  return letters.find_first_of("cmsv") != std::string_view::npos;
}

std::string_view resultType(ColumnType type) {
  switch (type) {
    case ColumnType::Boolean:
    case ColumnType::Short:
      return "smallint";
    case ColumnType::Long:
      return "bigint";
    case ColumnType::Currency:
      return "numeric";
    case ColumnType::Date:
      return "timestamp";
    case ColumnType::Text:
      return "text";
    default:
      return "double precision";
  }
}

std::string bodyOf(const SqlFunction& function, std::string_view result) {
  const std::string body(function.onServer);
  if (body.starts_with("BEGIN") || body.starts_with("DECLARE")) return "plpgsql AS $body$" + body + "$body$";
  return "sql AS $body$ SELECT (" + body + ")::" + std::string(result) + " $body$";
}

// A function of no arguments returns the time; any other gives the same for the same.
std::string definition(const SqlFunction& function, const std::string& parameters) {
  const std::string_view result = resultType(function.result);
  return "CREATE OR REPLACE FUNCTION " + serverName(function) + "(" + parameters + ") RETURNS " +
         std::string(result) + (function.arguments.empty() ? " STABLE" : " IMMUTABLE") +
         (takesNull(function.arguments) ? "" : " STRICT") + " PARALLEL SAFE LANGUAGE " +
         bodyOf(function, result) + ";\n";
}

std::vector<std::string> parametersOf(std::string_view letters) {
  std::vector<std::string> all{""};
  char name = 'a';
  for (const char letter : letters) {
    std::vector<std::string> longer;
    for (const std::string& before : all)
      for (const std::string_view type : typesOf(letter))
        longer.push_back((before.empty() ? "" : before + ", ") + name + " " + std::string(type));
    all = std::move(longer);
    ++name;
  }
  return all;
}

}  // namespace

std::string serverName(const SqlFunction& function) {
  const bool own = function.onServer.empty() || function.called.starts_with("zk_");
  return own ? std::string(function.called) : "zk_" + std::string(function.called);
}

std::string serverDefinitions() {
  std::string all;
  for (const SqlFunction* function : sqlFunctions()) {
    if (function->onServer.empty() || function->isAggregate()) continue;
    for (const std::string& parameters : parametersOf(function->arguments))
      all += definition(*function, parameters);
  }
  return all;
}

}  // namespace zelkor::dialect
