#include "forms/Script.h"

#include <algorithm>

#include "base/Text.h"
#include "support/Support.h"

namespace zelkor::test {
namespace {

std::string replaced(std::string text, const std::string& what, const std::string& with) {
  for (auto at = text.find(what); at != std::string::npos; at = text.find(what, at + with.size()))
    text.replace(at, what.size(), with);
  return text;
}

std::string plain(const std::string& text) {
  return replaced(replaced(withoutQuotes(text), "\\n", "\n"), "\\r", "\r");
}

/// The lines that lie deeper than `indent`, each with its own below it, taken from the front.
std::vector<ScriptLine> linesBelow(const std::vector<ScriptLine>& all, std::size_t& at, std::size_t indent) {
  std::vector<ScriptLine> lines;
  while (at < all.size()) {
    const std::size_t own = all[at].text.find_first_not_of(' ');
    if (own < indent) break;
    ScriptLine line{all[at].number, all[at].text.substr(own), {}};
    ++at;
    line.below = linesBelow(all, at, own + 1);
    lines.push_back(std::move(line));
  }
  return lines;
}

}  // namespace

Script readScript(const std::filesystem::path& path) {
  std::vector<ScriptLine> all;
  int number = 0;
  for (const std::string& text : Split(readFile(path), '\n')) {
    ++number;
    const std::size_t start = text.find_first_not_of(' ');
    if (start != std::string::npos && text[start] != ';') all.push_back({number, text, {}});
  }
  Script script{path, {}, {}, {}};
  std::size_t at = 0;
  for (ScriptLine& line : linesBelow(all, at, 0)) {
    const std::string kind = takeWord(line.text);
    if (kind == "given") {
      script.given = std::move(line.below);
    } else if (kind == "word") {
      script.words.emplace(line.text, line);
    } else if (kind == "scene") {
      script.scenes.push_back(std::move(line));
    } else {
      throw std::runtime_error(path.string() + ": neither given, word nor scene: " + kind);
    }
  }
  return script;
}

std::vector<ScriptLine> filled(std::vector<ScriptLine> lines, const std::vector<std::string>& texts) {
  for (ScriptLine& line : lines) {
    for (std::size_t i = 0; i < 9; ++i)
      line.text = replaced(line.text, "$" + std::to_string(i + 1), i < texts.size() ? texts[i] : "");
    line.below = filled(std::move(line.below), texts);
  }
  return lines;
}

std::string takeWord(std::string& line) {
  const std::size_t end = std::min(line.find(' '), line.size());
  const std::string word = line.substr(0, end);
  line.erase(0, std::min(end + 1, line.size()));
  return word;
}

std::string withoutQuotes(const std::string& text) {
  const bool quoted = text.size() >= 2 && text.front() == '"' && text.back() == '"';
  return quoted ? text.substr(1, text.size() - 2) : text;
}

std::vector<std::string> partsOf(const std::string& line) {
  std::vector<std::string> parts;
  for (std::size_t from = 0; from <= line.size();) {
    const std::size_t arrow = std::min(line.find(" => ", from), line.size());
    parts.push_back(plain(line.substr(from, arrow - from)));
    from = arrow + (arrow == line.size() ? 1 : 4);
  }
  return parts;
}

}  // namespace zelkor::test
