#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "base/FileAccess.h"

namespace zelkor {

/// How a child has ended.
struct ChildEnd {
  int status = 0;      // exit status, or 128 and the number of the signal that ended it
  std::string errors;  // what it told on standard error
  std::string output;  // and on standard output

  bool failed() const { return status != 0; }
};

/// A program that was started beside this one. It lives on when this one ends. Who wants to know of its end
/// waits for `endDescriptor` to become readable.
class ChildProgram {
 public:
  /// Starts it; error 53 when there is no such program, 57 when the system refuses.
  ChildProgram(const std::string& program, const std::vector<std::string>& arguments);

  int endDescriptor() const { return process_.get(); }
  /// The end of what it has told on standard error until now, some thousand lines at most.
  std::string endOfErrors() const;
  /// Waits for the end.
  ChildEnd finish();

 private:
  FileDescriptor errors_;  // files without a name: nothing is lost when nobody reads, and nobody waits
  FileDescriptor output_;
  FileDescriptor process_;  // the process itself, as the system calls it
};

/// The first sentence of a text, or its first line.
std::string firstSentence(const std::string& text);

/// One sentence about an end that is no success: which job, why, by its first words.
std::string sentenceAboutEnd(std::string_view job, const ChildEnd& end);

}  // namespace zelkor
