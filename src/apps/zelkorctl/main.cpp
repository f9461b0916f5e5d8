#include <csignal>
#include <exception>
#include <iostream>
#include <string>

#include "apps/zelkorctl/CommandLine.h"
#include "apps/zelkorctl/Connections.h"
#include "base/EndSignals.h"
#include "base/RuntimeError.h"

namespace zelkor {
namespace {

constexpr int kFailed = 1;
constexpr int kWrongUsage = 2;

int failed(const std::string& text) {
  std::cerr << "zelkorctl: " << text << std::endl;
  return kFailed;
}

int called(const ParsedCall& parsed) {
  if (!parsed.call) {
    std::cout << parsed.text << std::flush;
    return 0;
  }
  if (parsed.verbose) tellConnection(parsed.asked, std::cerr);
  const int status = parsed.call->run(parsed.asked, std::cout, std::cerr);
  std::cout.flush();
  return status;
}

int runProgram(int argc, const char* const* argv) {
  try {
    return called(parseCall(argc, argv));
  } catch (const WrongCall& wrong) {
    std::cerr << "用法错误 / wrong usage: " << wrong.what() << "\n用 zelkorctl --help 查看用法\n";
    return kWrongUsage;
  } catch (const EndProgram& end) {
    return end.status;
  } catch (const RuntimeError& error) {
    return failed("错误 " + std::to_string(error.number()) + "：" + error.what());
  } catch (const std::ios_base::failure&) {
    if (const auto status = endSignalStatus()) return *status;  // it has cut a write off
    return failed("不能写出结果：输出已关闭");
  } catch (const std::exception& error) {
    return failed(std::string("内部错误：") + error.what());
  }
}

}  // namespace
}  // namespace zelkor

int main(int argc, char** argv) {
  std::signal(SIGPIPE, SIG_IGN);  // a closed output is reported as a failed write
  std::cerr.tie(nullptr);         // an error is reported even when the output is closed
  std::cout.exceptions(std::ios::badbit);
  const int status = zelkor::runProgram(argc, argv);
  std::cout.exceptions(std::ios::goodbit);  // what is left is written at exit, where nothing may be thrown
  return status;
}
