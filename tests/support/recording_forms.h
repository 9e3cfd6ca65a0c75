// A forms toolkit that shows nothing: it answers message boxes from a list and records them.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <deque>
#include <memory>
#include <string>
#include <vector>

#include "platform/forms.h"

namespace vexnumkr::test {

/// A message box that was raised.
struct Box {
  std::string title;
  std::string prompt;
  std::int32_t buttons = 0;

  friend bool operator==(const Box&, const Box&) = default;
};

inline void PrintTo(const Box& box, std::ostream* out) {
  *out << box.title << " | " << box.prompt << " | " << box.buttons;
}

/// The box that reports a failure.
inline Box errorBox(std::int32_t number, const std::string& module, const std::string& procedure,
                    const std::string& description) {
  return {"Fehler " + std::to_string(number), module + "\r\n" + procedure + ": " + description, 48};
}

class RecordingForms final : public FormsToolkit {
 public:
  std::unique_ptr<Form> createForm(const FormDescription& /*description*/,
                                   FormEvents& /*events*/) override {
    throw Error(0, "test", "no forms in this test");
  }

  std::int32_t MsgBox(const std::string& prompt, std::int32_t buttons,
                      const std::string& title) override {
    boxes_.push_back({title, prompt, buttons});
    if (answers_.empty()) {
      // A box with a choice has to be answered by the test that raises it.
      EXPECT_EQ(buttons % 16, msg_box::okOnly) << "unexpected question: " << prompt;
      return msg_box::ok;
    }
    const std::int32_t answer = answers_.front();
    answers_.pop_front();
    return answer;
  }

  void SetMousePointer(MousePointer pointer) override { pointers_.push_back(pointer); }
  void DoEvents() override {}
  void closeAll() noexcept override {}

  /// Answers the next box that has no answer yet.
  void answer(std::int32_t code) { answers_.push_back(code); }
  bool allAnswersUsed() const { return answers_.empty(); }

  /// The boxes since the last call.
  std::vector<Box> takeBoxes() { return std::exchange(boxes_, {}); }
  std::vector<MousePointer> takePointers() { return std::exchange(pointers_, {}); }

 private:
  std::vector<Box> boxes_;
  std::deque<std::int32_t> answers_;
  std::vector<MousePointer> pointers_;
};

}  // namespace vexnumkr::test
