#pragma once

#include <string>

// What is wrong with a value that was given to an option, as a sentence; empty when nothing is.
namespace zelkor {

/// A date is yyyy-mm-dd.
std::string dateProblem(const std::string& text);
/// Answers are words joined by commas.
std::string answersProblem(const std::string& text);
/// An empty word would mean a file, where a server was asked for.
std::string serverProblem(const std::string& text);
std::string yearProblem(const std::string& text);
std::string jobsProblem(const std::string& text);
/// How many backups are kept.
/// A line of text of a length that a list can show.
std::string labelProblem(const std::string& text);
std::string keepProblem(const std::string& text);
std::string monthProblem(const std::string& text);
std::string monthsProblem(const std::string& text);
std::string runTypeProblem(const std::string& text);

}  // namespace zelkor
