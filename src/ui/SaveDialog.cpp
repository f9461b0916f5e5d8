#include "ui/SaveDialog.h"

#include <algorithm>
#include <QFileDialog>
#include <QFileInfo>
#include <QStandardPaths>

#include "ui/Texts.h"

namespace zelkor {
namespace {

QString formatOf(const QString& filter, std::span<const FileForm> forms) {
  return std::ranges::find(forms, filter, &FileForm::filter)->format;
}

bool isFormat(const QString& suffix, std::span<const FileForm> forms) {
  return std::ranges::find(forms, suffix, &FileForm::format) != forms.end();
}

SavedFile savedFile(const QString& name, const QString& filter, std::span<const FileForm> forms) {
  const QString suffix = QFileInfo(name).suffix().toLower();
  if (isFormat(suffix, forms)) return {name, suffix};
  return {name + "." + formatOf(filter, forms), formatOf(filter, forms)};
}

bool mayReplace(Dialogs& dialogs, const QString& file) {
  if (!QFileInfo::exists(file)) return true;
  const std::string question = "文件“" + fromQt(file) + "”已存在，是否替换？";
  return dialogs.MsgBox(question, Buttons::YesNo, Icon::Question, "另存为") == Answer::Yes;
}

}  // namespace

std::optional<SavedFile> askWhereToSave(Dialogs& dialogs, QWidget& over, const QString& name,
                                        std::span<const FileForm> forms) {
  QFileDialog dialog(&over, "另存为");
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  dialog.setOption(QFileDialog::DontConfirmOverwrite);  // the name may not be complete yet
  QStringList filters;
  for (const FileForm& form : forms) filters << form.filter;
  dialog.setNameFilters(filters);
  dialog.setDefaultSuffix(forms.front().format);
  QObject::connect(&dialog, &QFileDialog::filterSelected, &dialog, [&dialog, forms](const QString& filter) {
    dialog.setDefaultSuffix(formatOf(filter, forms));
  });
  dialog.setDirectory(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation));
  dialog.selectFile(name);
  if (dialog.exec() != QDialog::Accepted) return std::nullopt;
  SavedFile file = savedFile(dialog.selectedFiles().front(), dialog.selectedNameFilter(), forms);
  if (!mayReplace(dialogs, file.name)) return std::nullopt;
  return file;
}

}  // namespace zelkor
