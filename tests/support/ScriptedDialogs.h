#pragma once

#include <gtest/gtest.h>

#include <deque>
#include <functional>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include "base/Dialogs.h"

namespace zelkor {

// GoogleTest prints values through these.
inline void PrintTo(Buttons value, std::ostream* out) {
  *out << "Buttons " << static_cast<int>(value);
}
inline void PrintTo(Icon value, std::ostream* out) {
  *out << "Icon " << static_cast<int>(value);
}
inline void PrintTo(Answer value, std::ostream* out) {
  *out << "Answer " << static_cast<int>(value);
}

namespace test {

struct ShownGrid {
  std::string caption;
  TextGrid grid;
};

/// The boxes that a test expects, in order, each with its answer. A box that differs in any letter, that
/// comes too early, or that never comes fails the test; so does a grid that no expectGrid announced.
class ScriptedDialogs final : public Dialogs {
 public:
  ScriptedDialogs() = default;
  ScriptedDialogs(const ScriptedDialogs&) = delete;
  ScriptedDialogs& operator=(const ScriptedDialogs&) = delete;
  ~ScriptedDialogs() override {
    for (const Expected& expected : expected_) ADD_FAILURE() << "box not shown: " << expected.box.text;
    if (expectedGrids_ != 0) ADD_FAILURE() << expectedGrids_ << " grid(s) not shown";
  }

  ScriptedDialogs& expect(MessageBox box, Answer answer) {
    expected_.push_back({std::move(box), answer});
    return *this;
  }
  /// A box with the one button, answered with it.
  ScriptedDialogs& expectOk(std::string text, Icon icon = Icon::None, std::string title = "") {
    return expect({std::move(text), Buttons::Ok, icon, std::move(title)}, Answer::Ok);
  }
  ScriptedDialogs& expectYesNo(std::string text, Answer answer, Icon icon = Icon::Question,
                               std::string title = "") {
    return expect({std::move(text), Buttons::YesNo, icon, std::move(title)}, answer);
  }
  ScriptedDialogs& expectGrid() {
    ++expectedGrids_;
    return *this;
  }

  /// Called with each box that was expected, before it is answered.
  void onShown(std::function<void(const MessageBox&, Answer)> listener) { shown_ = std::move(listener); }

  const std::vector<ShownGrid>& grids() const { return grids_; }
  const std::vector<MessageBox>& boxes() const { return boxes_; }
  bool allShown() const { return expected_.empty() && expectedGrids_ == 0; }

 protected:
  Answer ask(const MessageBox& box) override {
    boxes_.push_back(box);
    if (expected_.empty()) {
      ADD_FAILURE() << "unexpected box [" << box.title << "] " << box.text;
      return box.buttons == Buttons::Ok      ? Answer::Ok
             : box.buttons == Buttons::YesNo ? Answer::No
                                             : Answer::Cancel;
    }
    const Expected expected = std::move(expected_.front());
    expected_.pop_front();
    EXPECT_EQ(box.text, expected.box.text);
    EXPECT_EQ(box.title, expected.box.title) << "title of: " << box.text;
    EXPECT_EQ(box.buttons, expected.box.buttons) << "buttons of: " << box.text;
    EXPECT_EQ(box.icon, expected.box.icon) << "icon of: " << box.text;
    EXPECT_TRUE(box.defaultButton == expected.box.defaultButton) << "default button of: " << box.text;
    if (shown_) shown_(box, expected.answer);
    return expected.answer;
  }

  void present(const std::string& caption, const TextGrid& grid) override {
    if (expectedGrids_ == 0) {
      ADD_FAILURE() << "unexpected grid: " << caption;
    } else {
      --expectedGrids_;
    }
    grids_.push_back({caption, grid});
  }

 private:
  struct Expected {
    MessageBox box;
    Answer answer;
  };
  std::deque<Expected> expected_;
  std::vector<MessageBox> boxes_;
  std::vector<ShownGrid> grids_;
  std::size_t expectedGrids_ = 0;
  std::function<void(const MessageBox&, Answer)> shown_;
};

}  // namespace test
}  // namespace zelkor
