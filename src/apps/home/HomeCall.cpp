#include "apps/home/HomeCall.h"

#include <array>
#include <span>
#include <stdexcept>
#include <string_view>

namespace zelkor {
namespace {

[[noreturn]] void refuse(const std::string& reason) {
  throw std::invalid_argument(reason);
}

std::string helpText();

std::string versionText() {
  return "zelkor-home " ZELKOR_VERSION "\n";
}

void takePlace(HomeCall& call, const std::string& value) {
  if (!call.place.empty()) refuse("只能给出一个账套：" + value);
  call.place = value;
}

void takeUser(HomeCall& call, const std::string& value) {
  call.user = value;
}

void takeDate(HomeCall& call, const std::string& value) {
  call.date = parseIsoDate(value);
  if (!call.date) refuse("--date 要写成 yyyy-mm-dd：" + value);
}

/// A word of the call: what is done with the value behind it, or what is printed for it instead of a run.
struct Option {
  std::string_view name;
  std::string_view value;
  std::string_view text;
  void (*take)(HomeCall&, const std::string&) = nullptr;
  std::string (*print)() = nullptr;

  bool isPlace() const { return !name.starts_with('-'); }
};

constexpr std::array<Option, 5> kOptions{{
    {"DIR", "", "账套所在的文件夹，或其数据文件；不给出时列出用过的账套", takePlace},
    {"--user", "NAME", "操作员；不给出时为上次的操作员或系统登录名", takeUser},
    {"--date", "DATE", "操作日期 yyyy-mm-dd；不给出时为未结账月份的最后一天", takeDate},
    {"--help", "", "显示用法", nullptr, helpText},
    {"--version", "", "显示版本", nullptr, versionText},
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
    const std::string mark = option.isPlace() ? "_" : "*";
    text += "\n" + mark + std::string(option.name) + mark;
    text += (option.value.empty() ? "" : " _" + std::string(option.value) + "_") + "\n\t" +
            std::string(option.text) + "。\n";
  }
  return text + "\n# EXAMPLES\n\n\t" + std::string(kExample) +
         "\n\n# FILES\n\n_~/.config/zelkor/account-sets.tsv_\n\t"
         "用过的账套。不含口令。\n\n# SEE ALSO\n\n*zelkor*(1), *zelkorctl*(1)";
}

/// The names of the options with a value, or of all of them, with that between each.
std::string optionNames(bool withValueAlone, char between) {
  std::string names;
  for (const Option& option : kOptions) {
    if (option.isPlace() || (withValueAlone && option.value.empty())) continue;
    if (!names.empty()) names += between;
    names += option.name;
  }
  return names;
}

std::string bashCompletion() {
  return "# bash completion of zelkor-home\n\n_zelkor_home() {\n  local word=${COMP_WORDS[COMP_CWORD]}\n"
         "  COMPREPLY=()\n  [[ ${COMP_WORDS[COMP_CWORD-1]} == @(" +
         optionNames(true, '|') +
         ") ]] && return\n  if [[ $word == -* ]]; then\n    mapfile -t COMPREPLY < <(compgen -W '" +
         optionNames(false, ' ') +
         "' -- \"$word\")\n  else\n    compopt -o filenames\n    mapfile -t COMPREPLY < <(compgen -f -- "
         "\"$word\")\n"
         "  fi\n}\n\ncomplete -F _zelkor_home zelkor-home\n";
}

/// What other programs ask for, of which no person is told.
constexpr std::array<Option, 3> kQuietOptions{{
    {"-h", "", "", nullptr, helpText},
    {"--help-scdoc", "", "", nullptr, manualSource},
    {"--help-bash", "", "", nullptr, bashCompletion},
}};

const Option& optionNamed(const std::string& word) {
  if (!word.starts_with('-')) return kOptions.front();
  for (const std::span<const Option> options :
       {std::span<const Option>(kOptions), std::span<const Option>(kQuietOptions)})
    for (const Option& option : options)
      if (option.name == word) return option;
  refuse("没有选项 " + word);
}

}  // namespace

HomeCall parseHomeCall(const std::vector<std::string>& words) {
  HomeCall call;
  for (std::size_t i = 0; i < words.size(); ++i) {
    const Option& option = optionNamed(words[i]);
    if (option.print != nullptr) {
      call.text = option.print();
      return call;
    }
    if (!option.isPlace() && ++i == words.size()) refuse(std::string(option.name) + " 后面缺少内容");
    option.take(call, words[i]);
  }
  return call;
}

}  // namespace zelkor
