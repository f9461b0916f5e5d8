#include "apps/home/HomeCall.h"

#include <array>
#include <stdexcept>
#include <string_view>

namespace zelkor {
namespace {

struct Option {
  std::string_view name;
  std::string_view value;
  std::string_view text;
};

constexpr std::array<Option, 5> kOptions{{
    {"DIR", "", "账套所在的文件夹，或其数据文件；不给出时列出用过的账套"},
    {"--user", "NAME", "操作员；不给出时为上次的操作员或系统登录名"},
    {"--date", "DATE", "操作日期 yyyy-mm-dd；不给出时为未结账月份的最后一天"},
    {"--help", "", "显示用法"},
    {"--version", "", "显示版本"},
}};
constexpr std::string_view kPurpose = "固定资产工作台：看本月做到哪里、下一步做什么，并打开各个界面";
constexpr std::string_view kExample = "zelkor-home /srv/books/001 --user 陈会计 --date 2020-01-31";

std::string titleOf(const Option& option) {
  return std::string(option.name) + (option.value.empty() ? "" : " " + std::string(option.value));
}

std::string helpText() {
  std::string text = "用法：zelkor-home [DIR] [选项]\n\n" + std::string(kPurpose) + "。\n\n";
  for (const Option& option : kOptions) {
    const std::string title = titleOf(option);
    text += "  " + title + std::string(title.size() < 14 ? 14 - title.size() : 1, ' ') +
            std::string(option.text) + "\n";
  }
  return text + "\n例：" + std::string(kExample) + "\n";
}

std::string manualSource() {
  std::string text =
      "zelkor-home(1) \"Zelkor " ZELKOR_VERSION
      "\" \"固定资产系统\"\n\n# NAME\n\nzelkor-home - 固定资产工作台\n\n"
      "# SYNOPSIS\n\n*zelkor-home* [_DIR_] [_选项_]\n\n# DESCRIPTION\n\n" +
      std::string(kPurpose) +
      "。每条命令作为一个 *zelkor* 进程启动，一次一个；工作台自己不向账套写入。\n\n# OPTIONS\n";
  for (const Option& option : kOptions) {
    text += option.name.starts_with("--") ? "\n*" + std::string(option.name) + "*"
                                          : "\n_" + std::string(option.name) + "_";
    text += (option.value.empty() ? "" : " _" + std::string(option.value) + "_") + "\n\t" +
            std::string(option.text) + "。\n";
  }
  return text + "\n# EXAMPLES\n\n\t" + std::string(kExample) +
         "\n\n# FILES\n\n_~/.config/zelkor/account-sets.tsv_\n\t"
         "用过的账套。不含口令。\n\n# SEE ALSO\n\n*zelkor*(1), *zelkorctl*(1)";
}

std::string bashCompletion() {
  std::string names;
  for (const Option& option : kOptions)
    if (option.name.starts_with("--")) names += std::string(option.name) + " ";
  return "# bash completion of zelkor-home\n\n_zelkor_home() {\n  local word=${COMP_WORDS[COMP_CWORD]}\n"
         "  COMPREPLY=()\n  [[ ${COMP_WORDS[COMP_CWORD-1]} == --@(user|date) ]] && return\n"
         "  if [[ $word == -* ]]; then\n    mapfile -t COMPREPLY < <(compgen -W '" +
         names +
         "' -- \"$word\")\n  else\n    compopt -o filenames\n    mapfile -t COMPREPLY < <(compgen -f -- "
         "\"$word\")\n"
         "  fi\n}\n\ncomplete -F _zelkor_home zelkor-home\n";
}

/// The text that a word asks for alone; empty for other words.
std::string printedFor(std::string_view word) {
  if (word == "--help" || word == "-h") return helpText();
  if (word == "--version") return "zelkor-home " ZELKOR_VERSION "\n";
  if (word == "--help-scdoc") return manualSource();
  if (word == "--help-bash") return bashCompletion();
  return {};
}

[[noreturn]] void refuse(const std::string& reason) {
  throw std::invalid_argument(reason);
}

void takeOption(HomeCall& call, const std::string& name, const std::string& value) {
  if (name == "--user") {
    call.user = value;
  } else if (name == "--date") {
    call.date = parseIsoDate(value);
    if (!call.date) refuse("--date 要写成 yyyy-mm-dd：" + value);
  } else {
    refuse("没有选项 " + name);
  }
}

}  // namespace

HomeCall parseHomeCall(const std::vector<std::string>& words) {
  HomeCall call;
  for (std::size_t i = 0; i < words.size(); ++i) {
    if (!words[i].starts_with('-')) {
      if (!call.place.empty()) refuse("只能给出一个账套：" + words[i]);
      call.place = words[i];
      continue;
    }
    call.text = printedFor(words[i]);
    if (!call.text.empty()) return call;
    const std::string& name = words[i];
    if (i + 1 == words.size())
      refuse((name == "--user" || name == "--date") ? name + " 后面缺少内容" : "没有选项 " + name);
    takeOption(call, name, words[++i]);
  }
  return call;
}

}  // namespace zelkor
