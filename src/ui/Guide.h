#pragma once

class QWidget;

namespace zelkor {

struct RunContext;

/// Opens the user guide at the chapter about the screen, or tells that none is installed.
void showGuide(RunContext& run, QWidget& screen);

/// The chapter about the screen of that name: its number in the guide.
int guideChapterOf(const char* screen);

}  // namespace zelkor
