#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <vector>

namespace zelkor::test {

/// A line of a script: its words, and the lines that are indented below it.
struct ScriptLine {
  int number = 0;
  std::string text;
  std::vector<ScriptLine> below;
};

/// What is done on the screens and what is seen there: a file of tests/forms/scripts, which README.md there
/// describes.
struct Script {
  std::filesystem::path path;
  std::vector<ScriptLine> given;  // runs before each scene
  std::map<std::string, ScriptLine> words;
  std::vector<ScriptLine> scenes;
};

Script readScript(const std::filesystem::path& path);

/// The lines with these texts in the places of $1, $2 and so on; a place without a text is left empty.
std::vector<ScriptLine> filled(std::vector<ScriptLine> lines, const std::vector<std::string>& texts);

/// The part of a line up to the first blank; the line keeps what stands behind it.
std::string takeWord(std::string& line);

/// A text that keeps blanks at its ends by quotes.
std::string withoutQuotes(const std::string& text);

/// The texts between the arrows of a line, without their quotes, \n and \r written out.
std::vector<std::string> partsOf(const std::string& line);

}  // namespace zelkor::test
