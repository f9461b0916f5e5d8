#pragma once

class QApplication;

namespace zelkor {

/// The one look of all forms: style, palette, Chinese font, style sheet, and the window system's own texts in
/// Chinese where they are installed.
void applyTheme(QApplication& application);

}  // namespace zelkor
