#include "reports/FrmBBCommands.h"

#include <QAction>

#include "ui/Toolbar.h"

namespace zelkor {

void setReportCommands(Toolbar& toolbar, std::initializer_list<std::string_view> acting) {
  toolbar.setButtons({"打开", "", "打印", "预览", "", "刷新", "保存", "取消", "", "增加", "修改", "删除",
                      "编辑", "查看", "", "退出"});
  for (QAction* command : toolbar.actions()) command->setEnabled(false);
  for (const std::string_view key : acting) toolbar.enable(key, true);
}

}  // namespace zelkor
