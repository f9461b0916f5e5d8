#include "home/frmSavedText.h"

#include <ostream>

#include "base/OutputFile.h"
#include "base/RuntimeError.h"
#include "ui/Texts.h"

namespace zelkor {

void saveText(Dialogs& dialogs, const QString& file, const std::string& text) {
  try {
    OutputFile output(fromQt(file), {.replace = true, .access = accessWithin(folderOf(fromQt(file)))});
    output.open() << text;
    output.finish();
  } catch (const RuntimeError& error) {
    dialogs.MsgBox(std::string("没有保存：") + error.what(), Buttons::Ok, Icon::Exclamation,
                   "固定资产工作台");
  }
}

}  // namespace zelkor
