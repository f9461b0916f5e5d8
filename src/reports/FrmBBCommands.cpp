#include "reports/FrmBBCommands.h"

#include <algorithm>

namespace zelkor {
namespace {

constexpr const char* kCaptions[] = {"打开", "",     "打印", "预览", "",     "刷新", "保存", "取消",
                                     "",     "增加", "修改", "删除", "编辑", "查看", "",     "退出"};

}  // namespace

std::vector<Command> reportCommands(const std::vector<Command>& acting) {
  std::vector<Command> commands;
  for (const char* caption : kCaptions) {
    const auto own = std::ranges::find(acting, caption, &Command::text);
    commands.push_back(own != acting.end() ? *own : Command(caption));
  }
  return commands;
}

}  // namespace zelkor
