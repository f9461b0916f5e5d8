#pragma once

class QWidget;

namespace zelkor {

/// Places the form in the middle of its screen: left and top are half of what the screen is wider and higher.
void CenterForm(QWidget& form);

}  // namespace zelkor
