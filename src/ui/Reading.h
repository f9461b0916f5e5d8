#pragma once

class QWidget;

namespace zelkor {

/// Gives a control the name that a screen reader tells: the label left of it or above it, for what shows
/// lists the window's caption; buttons have their own. A name that somebody else has given stays.
void nameControl(QWidget& control);
/// Names every control of the window in which the keyboard can work.
void nameControls(QWidget& window);

/// Lets Tab go through the controls as one reads: along the lines of the layout, part after part.
void tabAsOneReads(QWidget& window);

}  // namespace zelkor
