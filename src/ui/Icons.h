#pragma once

#include <QIcon>
#include <QPixmap>

namespace zelkor {

/// The icon of a command by its caption ("增加", "删除", ...), drawn in lines; a null icon where none is
/// drawn.
QIcon commandIcon(const QString& caption);

/// What a message is, as its picture: a ring with a letter, or a triangle.
enum class MessagePicture { Information, Question, Warning, Error };
QPixmap messagePicture(MessagePicture picture);

/// Icons of a tree's entries.
QIcon closedFolderIcon();
QIcon openFolderIcon();
QIcon leafIcon();

/// Marks where one is among the steps of a wizard.
QIcon currentStepIcon();

}  // namespace zelkor
