#include "home/frmToolForm.h"

#include <QCloseEvent>
#include <QLineEdit>

#include "base/RuntimeError.h"
#include "home/AccountSetState.h"
#include "ui/Focus.h"

namespace zelkor {
namespace {

constexpr const char* kTitle = "固定资产工作台";
constexpr int kStateHeight = 40;

}  // namespace

ToolForm::ToolForm(FormHost& host, const char* name, const char* caption, const std::string& tool,
                   const char* busy)
    : Form(host, name, caption, Unload::Plain), program_(tool), busy_(busy) {
  LblState->setWordWrap(true);
  LblState->setMinimumHeight(kStateHeight);
  LblState->setTextInteractionFlags(Qt::TextSelectableByMouse);
}

// What is being written is not left alone.
void ToolForm::closeEvent(QCloseEvent* event) {
  if (!toolRuns()) return Form::closeEvent(event);
  event->ignore();
  host().dispatch([this] { run().dialogs.MsgBox(busy_, Buttons::Ok, Icon::Information, kTitle); });
}

void ToolForm::say(const std::string& text, bool alarming) {
  LblState->setText(toQt(alarming ? "⚠ " + text : text));
  LblState->setStyleSheet(alarming ? "color: #9a5b00;" : "");
}

void ToolForm::refuse(const std::string& reason, QWidget& field) {
  run().dialogs.MsgBox(reason, Buttons::Ok, Icon::Exclamation, kTitle);
  returnTo(field);
}

bool ToolForm::startTool(const std::string& caption, const std::vector<std::string>& words,
                         const std::function<void(const ChildEnd&)>& ended) {
  try {
    tool_.start(program_, caption, words,
                [this, ended](const ChildEnd& end) { host().dispatch([&] { ended(end); }); });
  } catch (const RuntimeError& error) {
    say(error.what(), true);
  }
  lockControls();
  return toolRuns();
}

std::string trimmedTextOf(const QLineEdit& field) {
  return fromQt(field.text().trimmed());
}

std::string problemOfSetFolder(const std::string& folder) {
  if (!folder.starts_with('/')) return "请指明账套放在哪个文件夹（从 / 开始的路径）！";
  KnownAccountSet wanted;
  wanted.dataFile = folder;
  try {
    requireCarriable(wanted, "");
  } catch (const RuntimeError& error) {
    return std::string(error.what()) + "。";
  }
  return {};
}

}  // namespace zelkor
