// Message boxes, the mouse pointer and the processing of pending events.
#include <QAccessible>
#include <QApplication>
#include <QIcon>
#include <QLabel>
#include <QMessageBox>
#include <QScreen>
#include <QTest>
#include <QTimer>

#include "gui/forms/forms_fixture.h"

namespace vexnumkr::test {
namespace {

class MessageBoxTest : public FormsTest {
 protected:
  /// The captions of the box's buttons from left to right.
  static Log captions(const QDialog& box) {
    auto buttons = box.findChildren<QPushButton*>();
    std::sort(buttons.begin(), buttons.end(), [](QPushButton* left, QPushButton* right) {
      return left->mapToGlobal(QPoint()).x() < right->mapToGlobal(QPoint()).x();
    });
    Log result;
    for (const QPushButton* each : buttons) result.push_back(each->text().toStdString());
    return result;
  }

  static bool busy() {
    return QApplication::overrideCursor() != nullptr &&
           QApplication::overrideCursor()->shape() == Qt::WaitCursor;
  }

  std::int32_t askWith(std::int32_t style, const std::string& answer) {
    boxes.expect(answer);
    return toolkit->MsgBox("Frage", style, "Titel");
  }

  std::int32_t askAndPress(std::int32_t style, Qt::Key key) {
    boxes.expectAndAct([key](QDialog& box) { QTest::keyClick(&box, key); });
    return toolkit->MsgBox("Frage", style, "Titel");
  }
};

TEST_F(MessageBoxTest, AnswersWithTheCodeOfTheButton) {
  EXPECT_EQ(askWith(0, "ok"), msg_box::ok);
  EXPECT_EQ(askWith(1, "ok"), msg_box::ok);
  EXPECT_EQ(askWith(1, "cancel"), msg_box::cancel);
  EXPECT_EQ(askWith(3 + 32, "yes"), msg_box::yes);
  EXPECT_EQ(askWith(3 + 32, "no"), msg_box::no);
  EXPECT_EQ(askWith(3 + 32, "cancel"), msg_box::cancel);
  EXPECT_EQ(askWith(4, "yes"), msg_box::yes);
  EXPECT_EQ(askWith(4, "no"), msg_box::no);
}

TEST_F(MessageBoxTest, OffersItsButtonsInGerman) {
  const auto offered = [&](std::int32_t style, const Log& expected, const std::string& answer) {
    boxes.expect(answer, [&](QDialog& box) {
      Log all = captions(box);
      Log wanted = expected;
      std::sort(all.begin(), all.end());
      std::sort(wanted.begin(), wanted.end());
      EXPECT_EQ(all, wanted);
    });
    toolkit->MsgBox("Frage", style, "Titel");
  };
  offered(0, {"OK"}, "ok");
  offered(48, {"OK"}, "ok");
  offered(1, {"OK", "Abbrechen"}, "ok");
  offered(3, {"Ja", "Nein", "Abbrechen"}, "no");
  offered(4, {"Ja", "Nein"}, "yes");
}

TEST_F(MessageBoxTest, ShowsTitlePromptAndIcon) {
  boxes.expect("ok", [](QDialog& dialog) {
    auto& box = dynamic_cast<QMessageBox&>(dialog);
    EXPECT_EQ(box.objectName(), QStringLiteral("msgBox"));
    EXPECT_EQ(box.property("buttons").toInt(), 48);
    EXPECT_EQ(box.property("prompt").toString(),
              QStringLiteral("Modul\r\nProc: <b>roh</b> & mehr"));
    EXPECT_EQ(box.text(), QStringLiteral("Modul\nProc: <b>roh</b> & mehr"));
    EXPECT_EQ(box.textFormat(), Qt::PlainText);
    EXPECT_EQ(box.windowTitle(), QStringLiteral("Fehler 3021"));
    EXPECT_EQ(box.icon(), QMessageBox::Warning);
    EXPECT_TRUE(box.isModal());
  });
  toolkit->MsgBox("Modul\r\nProc: <b>roh</b> & mehr", 48, "Fehler 3021");
}

TEST_F(MessageBoxTest, HasTheFontOfTheWindowBelow) {
  boxes.expect("ok",
               [](QDialog& box) { EXPECT_EQ(box.font().family(), QStringLiteral("Tahoma")); });
  toolkit->MsgBox("Hinweis", 0, "Titel");
  make(std::vector<ControlDescription>{});
  form->SetFont({"Liberation Serif", 12, false});
  boxes.expect("ok", [](QDialog& box) {
    EXPECT_EQ(box.font().family(), QStringLiteral("Liberation Serif"));
    EXPECT_EQ(box.findChild<QPushButton*>()->font().pixelSize(), 16);
  });
  show([&] { toolkit->MsgBox("Hinweis", 0, "Titel"); });
}

TEST_F(MessageBoxTest, LinesThatHaveRoomAreNotBroken) {
  const QString line =
      QStringLiteral("Diese Option startet eine automatische Nummernvergabe nach Maske.");
  boxes.expect("ok", [&](QDialog& box) {
    const auto* label = box.findChild<QLabel*>(QStringLiteral("qt_msgbox_label"));
    ASSERT_NE(label, nullptr);
    EXPECT_GE(label->width(), label->fontMetrics().horizontalAdvance(line));
  });
  toolkit->MsgBox((line + QStringLiteral("\r\nWollen Sie?")).toStdString(), 64, "Titel");
}

TEST_F(MessageBoxTest, ALongLineIsBrokenAtAReadableWidth) {
  boxes.expect("ok", [&](QDialog& box) {
    const QRect screen = box.screen()->availableGeometry();
    EXPECT_LT(box.width(), screen.width());
    EXPECT_LT(box.height(), screen.height());
  });
  std::string words;
  for (int i = 0; i < 100; ++i) words += "Wort ";
  toolkit->MsgBox(words, 64, "Titel");
}

// Whatever the length, since the box has its own idea of when a line is too long.
TEST_F(MessageBoxTest, TheWholeTextIsSeen) {
  std::string words;
  for (int count = 1; count <= 60; ++count) {
    SCOPED_TRACE(words += "Beleg ");
    boxes.expect("ok", [&](QDialog& box) {
      const auto* label = box.findChild<QLabel*>(QStringLiteral("qt_msgbox_label"));
      ASSERT_NE(label, nullptr);
      const QRect needed = label->fontMetrics().boundingRect(
          label->contentsRect(), label->wordWrap() ? Qt::TextWordWrap : 0, label->text());
      EXPECT_LE(needed.width(), label->contentsRect().width());
      EXPECT_LE(needed.height(), label->contentsRect().height());
    });
    toolkit->MsgBox(words, count % 2 == 0 ? 64 : 0, "Titel");
  }
}

TEST_F(MessageBoxTest, HasTheIconOfItsStyle) {
  const auto icon = [&](std::int32_t style) {
    QMessageBox::Icon seen = QMessageBox::NoIcon;
    boxes.expect("ok", [&](QDialog& box) { seen = dynamic_cast<QMessageBox&>(box).icon(); });
    toolkit->MsgBox("Hinweis", style, "Titel");
    return seen;
  };
  EXPECT_EQ(icon(0), QMessageBox::NoIcon);
  EXPECT_EQ(icon(16), QMessageBox::Critical);
  EXPECT_EQ(icon(32), QMessageBox::Question);
  EXPECT_EQ(icon(48), QMessageBox::Warning);
  EXPECT_EQ(icon(64), QMessageBox::Information);
}

TEST_F(MessageBoxTest, TheStyleNamesAnotherDefault) {
  EXPECT_EQ(askAndPress(4 + 256, Qt::Key_Return), msg_box::no);
  EXPECT_EQ(askAndPress(4 + 32 + 256, Qt::Key_Enter), msg_box::no);
  EXPECT_EQ(askAndPress(3 + 32 + 256, Qt::Key_Return), msg_box::no);
  EXPECT_EQ(askAndPress(3 + 32 + 512, Qt::Key_Return), msg_box::cancel);
  EXPECT_EQ(askAndPress(1 + 48 + 256, Qt::Key_Return), msg_box::cancel);
}

TEST_F(MessageBoxTest, ADefaultThatIsNotThereIsTheFirstButton) {
  EXPECT_EQ(askAndPress(0 + 256, Qt::Key_Return), msg_box::ok);
  EXPECT_EQ(askAndPress(4 + 512, Qt::Key_Return), msg_box::yes);
  EXPECT_EQ(askAndPress(3 + 768, Qt::Key_Return), msg_box::yes);
}

TEST_F(MessageBoxTest, TheDefaultIsMarkedAndHasTheFocus) {
  boxes.expect("yes", [](QDialog& dialog) {
    const auto* no = dialog.findChild<QPushButton*>(QStringLiteral("no"));
    EXPECT_TRUE(no->isDefault());
    EXPECT_EQ(dialog.focusWidget(), no);
    EXPECT_FALSE(dialog.findChild<QPushButton*>(QStringLiteral("yes"))->isDefault());
    EXPECT_EQ(dialog.property("buttons").toInt(), 4 + 32 + 256);
  });
  toolkit->MsgBox("Frage", 4 + 32 + 256, "Titel");
}

TEST_F(MessageBoxTest, TheFirstButtonIsTheDefault) {
  EXPECT_EQ(askAndPress(3, Qt::Key_Return), msg_box::yes);
  EXPECT_EQ(askAndPress(4, Qt::Key_Return), msg_box::yes);
  EXPECT_EQ(askAndPress(1, Qt::Key_Return), msg_box::ok);
  EXPECT_EQ(askAndPress(0, Qt::Key_Return), msg_box::ok);
}

TEST_F(MessageBoxTest, EscapeStandsForCancelOrALonelyOk) {
  EXPECT_EQ(askAndPress(3, Qt::Key_Escape), msg_box::cancel);
  EXPECT_EQ(askAndPress(1, Qt::Key_Escape), msg_box::cancel);
  EXPECT_EQ(askAndPress(48, Qt::Key_Escape), msg_box::ok);
}

TEST_F(MessageBoxTest, TheCloseButtonStandsForCancelOrALonelyOk) {
  const auto askAndClose = [&](std::int32_t style) {
    boxes.expectAndAct([](QDialog& box) { box.close(); });
    return toolkit->MsgBox("Frage", style, "Titel");
  };
  EXPECT_EQ(askAndClose(3), msg_box::cancel);
  EXPECT_EQ(askAndClose(1), msg_box::cancel);
  EXPECT_EQ(askAndClose(0), msg_box::ok);
}

TEST_F(MessageBoxTest, AQuestionWithoutCancelHasToBeAnswered) {
  boxes.expect("no", [](QDialog& box) {
    EXPECT_FALSE(box.windowFlags().testFlag(Qt::WindowCloseButtonHint));
    QTest::keyClick(&box, Qt::Key_Escape);
    box.close();
    EXPECT_TRUE(box.isVisible());
  });
  EXPECT_EQ(toolkit->MsgBox("Frage", 4, "Titel"), msg_box::no);
}

TEST_F(MessageBoxTest, ItsInitialsAnswerToo) {
  EXPECT_EQ(askAndPress(3, Qt::Key_N), msg_box::no);
  EXPECT_EQ(askAndPress(3, Qt::Key_J), msg_box::yes);
}

TEST_F(MessageBoxTest, BelongsToTheFormOnTop) {
  make(std::vector<ControlDescription>{});
  boxes.expect("ok", [&](QDialog& box) { EXPECT_EQ(box.parentWidget(), &window()); });
  show([&] { toolkit->MsgBox("Hinweis", 0, "Titel"); });
}

TEST_F(MessageBoxTest, TheFormHasTheFocusAgainAfterwards) {
  make({button("cmdOK", {0, 0, 1000, 345}, "OK", 0)});
  boxes.expect("ok");
  show([&] {
    toolkit->MsgBox("Hinweis", 0, "Titel");
    waitUntilActive();
    EXPECT_EQ(QApplication::focusWidget(), &widget("cmdOK"));
  });
}

TEST_F(MessageBoxTest, TheBusyPointerIsBalanced) {
  EXPECT_FALSE(busy());
  toolkit->SetMousePointer(MousePointer::Hourglass);
  toolkit->SetMousePointer(MousePointer::Hourglass);
  EXPECT_TRUE(busy());
  toolkit->SetMousePointer(MousePointer::Default);
  EXPECT_FALSE(busy());
  toolkit->SetMousePointer(MousePointer::Default);
  EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST_F(MessageBoxTest, TheHostsOwnPointerIsLeftAlone) {
  QApplication::setOverrideCursor(QCursor(Qt::CrossCursor));
  toolkit->SetMousePointer(MousePointer::Default);
  EXPECT_NE(QApplication::overrideCursor(), nullptr);
  QApplication::restoreOverrideCursor();
}

TEST_F(MessageBoxTest, ThePointerIsOrdinaryWhileABoxIsUp) {
  toolkit->SetMousePointer(MousePointer::Hourglass);
  boxes.expect("ok", [](QDialog&) { EXPECT_FALSE(busy()); });
  toolkit->MsgBox("Hinweis", 0, "Titel");
  EXPECT_TRUE(busy());
  boxes.expect("ok", [&](QDialog&) { toolkit->SetMousePointer(MousePointer::Default); });
  toolkit->MsgBox("Hinweis", 0, "Titel");
  EXPECT_FALSE(busy());
}

TEST_F(MessageBoxTest, TheBusyPointerGoesWithTheToolkit) {
  toolkit->SetMousePointer(MousePointer::Hourglass);
  toolkit.reset();
  EXPECT_FALSE(busy());
}

TEST_F(MessageBoxTest, DoEventsProcessesWhatIsPending) {
  bool processed = false;
  QMetaObject::invokeMethod(
      qApp, [&] { processed = true; }, Qt::QueuedConnection);
  toolkit->DoEvents();
  EXPECT_TRUE(processed);
}

}  // namespace
}  // namespace vexnumkr::test
