#include "apps/zelkorctl/CommandLine.h"

#include <algorithm>
#include <CLI/CLI.hpp>
#include <map>
#include <memory>
#include <type_traits>

#include "apps/zelkorctl/CallDocuments.h"

namespace zelkor {
namespace {

constexpr const char* kTitle = "Zelkor 账套管理工具 / administrator's tool of the fixed-assets module";

std::shared_ptr<CLI::Formatter> chineseFormatter() {
  auto formatter = std::make_shared<CLI::Formatter>();
  for (const auto& [word, label] : {std::pair("Usage", "用法"),
                                    {"OPTIONS", "选项"},
                                    {"Positionals", "参数"},
                                    {"SUBCOMMAND", "调用"},
                                    {"REQUIRED", "（必需）"},
                                    {"Needs", "须同时给出"}}) {
    formatter->label(word, label);
  }
  return formatter;
}

std::string wordProblem(const Parameter& parameter, const std::string& word) {
  if (std::ranges::find(parameter.words, word) != parameter.words.end()) return {};
  std::string list;
  for (const std::string_view one : parameter.words) list += (list.empty() ? "" : "、") + std::string(one);
  return "没有“" + word + "”，只有：" + list;
}

/// The CLI11 application that the table describes.
class CommandLine {
 public:
  /// With `bySet` the jobs name their account set by --set, otherwise by an argument string: which word
  /// is in which place depends on it.
  CommandLine(bool bySet, ParsedCall& parsed) : bySet_(bySet), parsed_(parsed) {
    app_.formatter(chineseFormatter());
    app_.option_defaults()->group("选项");
    app_.set_help_flag("-h,--help", "显示用法");
    app_.set_version_flag("--version", "zelkorctl " ZELKOR_VERSION, "显示版本");
    app_.add_flag("--verbose", parsed_.verbose, "也说明到服务器的连接为何慢；写在调用之前");
    addDocument("--help-scdoc", manualSource);
    addDocument("--help-bash", bashCompletion);
    app_.footer("zelkorctl 调用 --help 显示一个调用的用法和例子。");
    app_.require_subcommand(1);
    for (const CallGroup& group : callGroups()) addGroup(group);
    for (const Call& call : calls()) addCall(call);
  }

  void parse(int argc, const char* const* argv) { app_.parse(argc, argv); }
  std::string help() const { return app_.help(); }
  std::vector<std::string> unknown() const { return app_.remaining(true); }

 private:
  static CLI::App& addApp(CLI::App& parent, std::string_view name, std::string_view text) {
    CLI::App& app = *parent.add_subcommand(std::string(name), std::string(text));
    app.set_help_flag("-h,--help", "显示用法");
    app.group("调用");
    return app;
  }
  void addGroup(const CallGroup& group) {
    CLI::App& app = addApp(app_, group.name, group.text);
    app.require_subcommand(1);
    groups_.emplace(group.name, &app);
  }
  void addCall(const Call& call);
  CLI::Option* addField(CLI::App& app, const Parameter& parameter);
  void addParameter(CLI::App& app, const Parameter& parameter);
  void addDocument(const char* flag, std::string (*text)());

  bool bySet_;
  ParsedCall& parsed_;
  CLI::App app_{kTitle, "zelkorctl"};
  std::map<std::string_view, CLI::App*> groups_;
};

/// A document is printed as the version is, and not named in the help.
void CommandLine::addDocument(const char* flag, std::string (*text)()) {
  app_.add_flag_callback(flag, [text] { throw CLI::CallForVersion(text(), CLI::ExitCodes::Success); })
      ->group("");
}

void CommandLine::addCall(const Call& call) {
  const std::size_t blank = call.name.find(' ');
  const bool isGrouped = blank != std::string_view::npos;
  CLI::App& parent = isGrouped ? *groups_.at(call.name.substr(0, blank)) : app_;
  CLI::App& app = addApp(parent, isGrouped ? call.name.substr(blank + 1) : call.name, call.text);
  app.footer("例：" + std::string(call.example));
  for (const Parameter& parameter : call.parameters) {
    if (isGivenWith(parameter, bySet_)) addParameter(app, parameter);
  }
  app.callback([this, &call] { parsed_.call = &call; });
}

CLI::Option* CommandLine::addField(CLI::App& app, const Parameter& parameter) {
  return std::visit(
      [&](auto field) {
        auto& target = parsed_.asked.*field;
        const std::string name(parameter.name);
        const std::string text(parameter.text);
        if constexpr (std::is_same_v<decltype(target), bool&>) {
          return app.add_flag(name, target, text);
        } else {
          return app.add_option(name, target, text);
        }
      },
      parameter.field);
}

void CommandLine::addParameter(CLI::App& app, const Parameter& parameter) {
  CLI::Option* option = addField(app, parameter);
  if (!parameter.isOption() && !parameter.optional) option->required();
  if (!parameter.isFlag()) option->type_name(std::string(parameter.value));
  if (const std::string text = defaultOf(parameter); !text.empty()) option->default_str(text);
  const auto check = [option](const std::function<std::string(const std::string&)>& problemOf) {
    option->check(CLI::Validator([problemOf](std::string& value) { return problemOf(value); }, ""));
  };
  if (parameter.check) check(parameter.check);
  if (!parameter.words.empty()) {
    check([&parameter](const std::string& word) { return wordProblem(parameter, word); });
  }
  if (!parameter.needs.empty()) option->needs(app.get_option(std::string(parameter.needs)));
}

std::string before(const std::string& text, const std::string& mark) {
  return text.substr(0, text.find(mark));
}

std::string behind(const std::string& text, const std::string& mark) {
  const std::size_t at = text.find(mark);
  return at == std::string::npos ? text : text.substr(at + mark.size());
}

std::string sentenceOf(const CLI::ParseError& error, const std::vector<std::string>& unknown) {
  const std::string text = error.what();
  switch (static_cast<CLI::ExitCodes>(error.get_exit_code())) {
    case CLI::ExitCodes::RequiredError:
      if (!text.starts_with("A subcommand")) return "缺少 " + before(text, " is ");
      return unknown.empty() ? "缺少调用的名称" : "没有“" + unknown.front() + "”这个调用";
    case CLI::ExitCodes::ExtrasError:
      return "多余的参数：" + CLI::detail::join(unknown, " ");
    case CLI::ExitCodes::ArgumentMismatch:
      return before(text, ":") + " 后面缺少值";
    case CLI::ExitCodes::RequiresError:
      return before(text, " requires ") + " 要与 " + behind(text, " requires ") + " 一起用";
    default:
      return text;
  }
}

}  // namespace

ParsedCall parseCall(int argc, const char* const* argv) {
  // What follows a lone "--" belongs to another call.
  const auto* end = std::find_if(argv, argv + argc, [](std::string_view word) { return word == "--"; });
  const bool bySet = std::any_of(
      argv, end, [](std::string_view word) { return word == "--set" || word.starts_with("--set="); });
  ParsedCall parsed;
  CommandLine line(bySet, parsed);
  try {
    line.parse(argc, argv);
  } catch (const CLI::CallForVersion& asked) {
    parsed.call = nullptr;
    parsed.text = std::string(asked.what()) + "\n";
  } catch (const CLI::CallForHelp&) {
    parsed.call = nullptr;
    parsed.text = line.help();
  } catch (const CLI::ParseError& error) {
    throw WrongCall(sentenceOf(error, line.unknown()));
  }
  return parsed;
}

}  // namespace zelkor
