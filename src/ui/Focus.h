#pragma once

#include <QWidget>

class QKeyEvent;

namespace zelkor {

/// Whether a key would write something; a blank alone does not count.
bool writesText(const QKeyEvent& key);

/// Whether a press of the button ends or removes something. Only who goes to it presses it.
bool endsOrRemoves(const QWidget& control);

/// What comes after the control when one reads on, without starting again at the top; nothing that ends or
/// removes. nullptr at the end.
QWidget* nextBehind(const QWidget& control);

/// What gets the focus of a control that has been locked or hidden: what comes after it, or before it, but
/// nothing that ends or removes. nullptr when there is nothing.
QWidget* heirOf(const QWidget& control);

/// Whether there are only buttons from this control on, in the order of reading.
bool onlyButtonsFrom(const QWidget& control);

/// Gives the field that a message was about the focus; what is there is selected, to be typed over.
void returnTo(QWidget& field);

}  // namespace zelkor
