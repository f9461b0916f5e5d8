#include "apps/zelkorctl/CallDocuments.h"

#include <algorithm>
#include <sstream>

#include "apps/zelkorctl/CallTable.h"

namespace zelkor {
namespace {

constexpr const char* kManualHead = R"(# NAME

zelkorctl - 固定资产系统的账套管理工具

# SYNOPSIS

*zelkorctl* _调用_ [_选项_]

# DESCRIPTION

供管理员和脚本使用：建立、复制、导入账套，成批录入，在终端里执行批处理，生成凭证和报表。

各项作业用参数串指明账套和操作日期：

	数据文件,操作员,操作日期,运行类型,系统文件,账套号

或者用 *--set* 给出账套所在目录，这时省去参数串，操作日期用 *--date*，操作员用 *--user*。

# CALLS
)";

constexpr const char* kManualTail = R"(
# EXIT STATUS

*0*
	完成。

*1*
	未完成，或者有未能处理的行，原因写在标准错误输出。

*2*
	用法错误，或者账套正在执行另一项作业。

*143*、*129*
	被 TERM 或 HUP 信号终止；已写入的内容保留。

# SEE ALSO

*zelkor*(1))";

/// The text with what scdoc would take for markup.
std::string escaped(std::string_view text) {
  std::string result;
  for (const char c : text) {
    if (c == '*' || c == '_' || c == '\\') result += '\\';
    result += c;
  }
  return result;
}

/// "--month MONTH" or "FILE", as the manual page writes it.
std::string titleOf(const Parameter& parameter) {
  const std::string name = escaped(parameter.name);
  if (!parameter.isOption()) return "_" + name + "_";
  if (parameter.isFlag()) return "*" + name + "*";
  return "*" + name + "* _" + escaped(parameter.value) + "_";
}

/// What is to be known of a parameter beside its text.
std::string remarksOf(const Parameter& parameter) {
  std::string remarks;
  for (const std::string_view word : parameter.words) {
    remarks += (remarks.empty() ? "：" : "、") + std::string(word);
  }
  const std::string given = defaultOf(parameter);
  if (!given.empty()) remarks += "（不给出时为 " + escaped(given) + "）";
  if (!parameter.needs.empty()) remarks += "（与 " + std::string(parameter.needs) + " 一起用）";
  return remarks;
}

void writeSynopsis(std::ostream& out, const Call& call, bool bySet) {
  out << "*zelkorctl " << call.name << "*";
  for (const Parameter& parameter : call.parameters) {
    if (parameter.isOption() || !isGivenWith(parameter, bySet)) continue;
    out << (parameter.optional ? " [" : " ") << titleOf(parameter) << (parameter.optional ? "]" : "");
  }
  out << (bySet ? " *--set* _DIR_" : "") << " [_选项_]\n";
}

bool isJob(const Call& call) {
  return std::ranges::any_of(call.parameters, [](const Parameter& one) { return one.name == "--set"; });
}

void writeCall(std::ostream& out, const Call& call) {
  out << "\n## " << call.name << "\n\n";
  writeSynopsis(out, call, false);
  if (isJob(call)) {
    out << '\n';
    writeSynopsis(out, call, true);
  }
  out << '\n' << escaped(call.text) << "。\n";
  for (const Parameter& parameter : call.parameters) {
    out << '\n' << titleOf(parameter) << "\n\t" << escaped(parameter.text) << remarksOf(parameter) << "。\n";
  }
  out << "\n例：\n\n\t" << escaped(call.example) << '\n';
}

std::string optionsOf(const Call& call) {
  std::string names = "--help";
  for (const Parameter& parameter : call.parameters) {
    if (parameter.isOption()) names += " " + std::string(parameter.name);
  }
  return names;
}

bool isPath(const Parameter& parameter) {
  return parameter.value == "DIR" || parameter.value == "FILE";
}

/// The branches of a shell's case for the values of one call's options.
void writeValues(std::ostream& out, const Call& call) {
  for (const Parameter& parameter : call.parameters) {
    if (!parameter.isOption() || parameter.isFlag()) continue;
    out << "    '" << call.name << ' ' << parameter.name << "') ";
    if (isPath(parameter)) {
      out << "_zelkorctl_files";
    } else {
      out << "_zelkorctl_words '";
      for (const std::string_view word : parameter.words) out << word << ' ';
      out << "'";
    }
    out << "; return ;;\n";
  }
}

/// The words that may come first, or after a group's word.
std::string wordsBehind(std::string_view group) {
  std::string words;
  const auto add = [&words](std::string_view word) { words += std::string(word) + " "; };
  const std::string prefix = group.empty() ? "" : std::string(group) + " ";
  for (const Call& call : calls()) {
    const bool isGrouped = call.name.find(' ') != std::string_view::npos;
    if (call.name.starts_with(prefix) && isGrouped != group.empty()) add(call.name.substr(prefix.size()));
  }
  if (!group.empty()) return words;
  for (const CallGroup& one : callGroups()) add(one.name);
  return words + "--help --version --verbose";
}

constexpr const char* kCompletionHead = R"(# bash completion of zelkorctl

_zelkorctl_words() {
  mapfile -t COMPREPLY < <(compgen -W "$1" -- "$word")
}

_zelkorctl_files() {
  compopt -o filenames
  mapfile -t COMPREPLY < <(compgen -f -- "$word")
}

_zelkorctl() {
  local word=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD-1]} call=${COMP_WORDS[1]}
  COMPREPLY=()
)";

}  // namespace

std::string manualSource() {
  std::ostringstream out;
  out << "zelkorctl(1) \"Zelkor " ZELKOR_VERSION "\" \"固定资产系统\"\n\n" << kManualHead;
  for (const Call& call : calls()) writeCall(out, call);
  out << kManualTail;
  return out.str();
}

std::string bashCompletion() {
  std::ostringstream out;
  out << kCompletionHead << "  case $call in\n";
  for (const CallGroup& group : callGroups()) {
    out << "    " << group.name << ") call+=\" ${COMP_WORDS[2]}\"\n      ((COMP_CWORD == 2)) && "
        << "_zelkorctl_words '" << wordsBehind(group.name) << "' && return ;;\n";
  }
  out << "  esac\n  ((COMP_CWORD == 1)) && _zelkorctl_words '" << wordsBehind("") << "' && return\n"
      << "  case \"$call $previous\" in\n";
  for (const Call& call : calls()) writeValues(out, call);
  out << "  esac\n  [[ $word == -* ]] || { _zelkorctl_files; return; }\n  case $call in\n";
  for (const Call& call : calls())
    out << "    '" << call.name << "') _zelkorctl_words '" << optionsOf(call) << "' ;;\n";
  out << "  esac\n}\n\ncomplete -F _zelkorctl zelkorctl";
  return out.str();
}

}  // namespace zelkor
