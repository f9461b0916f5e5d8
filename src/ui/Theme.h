#pragma once

class QApplication;

namespace zelkor {

/// Keeps the desktop's fonts, colours and icons out of the forms. Called before the application is made.
void ignoreDesktopSettings();

/// The one look of all forms: style, palette, Chinese font, style sheet. Tells on standard error where no
/// Chinese font is installed.
void applyTheme(QApplication& application);

}  // namespace zelkor
