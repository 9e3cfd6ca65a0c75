#include "app/components/host_messages.h"

#include <gtest/gtest.h>

#include <QMessageBox>
#include <QPushButton>

#include <vexnumkr/error.h>

#include "app/components/offered_components.h"
#include "app/expected_windows.h"

namespace vexnumkr::app {
namespace {

using test::child;
using test::click;

constexpr std::int16_t failureKind = 3;
constexpr std::int16_t questionKind = 4;
constexpr std::int32_t exclamation = 48;
constexpr std::int32_t yesNoCancelQuestion = 35;

class Messages : public testing::Test {
 protected:
  void expectBox(const char* button, std::function<void(QMessageBox&)> look) {
    windows_.expect("msgBox", [=](QDialog& box) {
      look(static_cast<QMessageBox&>(box));
      click(box, button);
    });
  }

  /// The calls by which the component reports a failure.
  std::int32_t reportFailure(std::int32_t number, const std::string& description) {
    HostMessages& messages = *host_.Messages();
    messages.ErrorNumber(number);
    messages.Prepare(description, failureKind, std::nullopt);
    const std::string text = host_.Texts()->Text(10055, {Value("Form_Load")});
    return messages.Show(text, failureKind, Value("frmNummernkreise"), exclamation, std::nullopt,
                         true);
  }

  StandAloneHost host_;
  test::ExpectedWindows windows_;
};

TEST_F(Messages, ShowAFailureAsTheStandardBoxDoes) {
  expectBox("ok", [](QMessageBox& box) {
    EXPECT_EQ(box.windowTitle(), QStringLiteral("Fehler 3021"));
    EXPECT_EQ(box.text(), QStringLiteral("frmNummernkreise\nForm_Load: no such table: tblUser"));
    EXPECT_EQ(box.icon(), QMessageBox::Warning);
    EXPECT_EQ(box.buttons().size(), 1);
    EXPECT_EQ(child<QPushButton>(box, "ok").text(), QStringLiteral("OK"));
  });
  EXPECT_EQ(reportFailure(3021, "no such table: tblUser"), 1);
}

TEST_F(Messages, ShowAFailureWithoutADescription) {
  expectBox("ok", [](QMessageBox& box) {
    EXPECT_EQ(box.windowTitle(), QStringLiteral("Fehler 0"));
    EXPECT_EQ(box.text(), QStringLiteral("frmNummernkreise\nForm_Load: "));
  });
  EXPECT_EQ(reportFailure(0, ""), 1);
}

TEST_F(Messages, ShowPercentSignsAndMarkupAsTheyAre) {
  expectBox("ok", [](QMessageBox& box) {
    EXPECT_EQ(box.textFormat(), Qt::PlainText);
    EXPECT_EQ(box.text(), QStringLiteral("frmNummernkreise\nForm_Load: <b>100 %1</b>"));
  });
  EXPECT_EQ(reportFailure(1, "<b>100 %1</b>"), 1);
}

TEST_F(Messages, ForgetAFailureOnceItIsShown) {
  expectBox("ok", [](QMessageBox&) {});
  reportFailure(13, "Typen unverträglich");
  expectBox("ok", [](QMessageBox& box) {
    EXPECT_EQ(box.windowTitle(), QStringLiteral("Fehler"));
    EXPECT_EQ(box.text(), QStringLiteral("basAllgemein\nSave"));
  });
  host_.Messages()->Show("Save", failureKind, Value("basAllgemein"), exclamation, std::nullopt,
                         true);
}

TEST_F(Messages, AskQuestionsAndReturnTheAnswer) {
  const std::vector<std::pair<const char*, std::int32_t>> answers = {
      {"yes", 6}, {"no", 7}, {"cancel", 2}};
  for (const auto& [button, code] : answers) {
    expectBox(button, [](QMessageBox& box) {
      EXPECT_EQ(box.windowTitle(), QStringLiteral("Abfrage"));
      EXPECT_EQ(box.text(), QStringLiteral("Sollen die Änderungen gespeichert werden?"));
      EXPECT_EQ(box.icon(), QMessageBox::Question);
      EXPECT_EQ(child<QPushButton>(box, "yes").text(), QStringLiteral("Ja"));
      EXPECT_EQ(child<QPushButton>(box, "no").text(), QStringLiteral("Nein"));
      EXPECT_EQ(child<QPushButton>(box, "cancel").text(), QStringLiteral("Abbrechen"));
    });
    EXPECT_EQ(host_.Messages()->Show("Sollen die Änderungen gespeichert werden?", questionKind,
                                     std::nullopt, yesNoCancelQuestion, Value("Abfrage"), false),
              code);
  }
}

TEST_F(Messages, DoNotMixAnAnnouncedFailureIntoAQuestion) {
  host_.Messages()->ErrorNumber(5);
  host_.Messages()->Prepare("Beschreibung", failureKind, std::nullopt);
  expectBox("ok", [](QMessageBox& box) {
    EXPECT_EQ(box.windowTitle(), QStringLiteral("Info"));
    EXPECT_EQ(box.text(), QStringLiteral("Hinweis"));
  });
  EXPECT_EQ(host_.Messages()->Show("Hinweis", questionKind, std::nullopt, 0, Value("Info"), false),
            1);
}

TEST_F(Messages, ReturnThePreparedText) {
  EXPECT_EQ(host_.Messages()->Prepare("Text", failureKind, std::nullopt), Value("Text"));
}

TEST_F(Messages, RefuseWhatIsNoText) {
  EXPECT_THROW(host_.Messages()->Prepare(Null(), failureKind, std::nullopt), Error);
  EXPECT_THROW(host_.Messages()->Show(Null(), questionKind, std::nullopt, 0, Value("Info"), false),
               Error);
}

}  // namespace
}  // namespace vexnumkr::app
