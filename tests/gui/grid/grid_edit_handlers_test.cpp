// What handlers of the editor's events may do.
#include <QApplication>
#include <QMessageBox>
#include <QTimer>

#include "gui/grid/grid_fixture.h"

namespace vexnumkr::test {
namespace {

// Answers a message box as soon as it is up.
void answerBox(const std::function<void(QMessageBox&)>& look = {}) {
  QTimer::singleShot(0, [look] {
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    ASSERT_NE(box, nullptr);
    if (look) look(*box);
    box->accept();
  });
}

TEST_F(GridTest, AKeySetToZeroIsNotSeenByTheEditor) {
  handler.onEditorKey = [](std::int16_t& key, std::int16_t) {
    if (key == '7') key = 0;
  };
  grid->StartEdit(2, column::Start);
  type("576");
  EXPECT_EQ(editor()->text(), QStringLiteral("56"));
}

TEST_F(GridTest, AHandlerMovesTheEditor) {
  handler.onEditorKey = [&](std::int16_t& key, std::int16_t) {
    if (key == key_code::tab && grid->EndEdit(true)) grid->StartEdit(3, column::Aktuell);
  };
  grid->StartEdit(2, column::Start);
  type("44");
  press(Qt::Key_Tab);
  EXPECT_EQ(grid->List(2, column::Start), "44");
  EXPECT_EQ(grid->ListIndex(), 3);
  ASSERT_TRUE(editorHasFocus());
  EXPECT_TRUE(cellRect(3, column::Aktuell).contains(editor()->geometry()));
  EXPECT_EQ(editor()->text(), QString());
  type("1");
  EXPECT_EQ(editor()->text(), QStringLiteral("1"));
}

TEST_F(GridTest, EnterThatMovesTheEditorLeavesItOpen) {
  handler.onEditorKey = [&](std::int16_t& key, std::int16_t) {
    if (key == key_code::enter && grid->EndEdit(true)) grid->StartEdit(2, column::Aktuell);
  };
  grid->StartEdit(2, column::Start);
  press(Qt::Key_Return);
  EXPECT_TRUE(editorHasFocus());
  EXPECT_TRUE(window.isVisible());
}

TEST_F(GridTest, AHandlerThatEndsTheEditSwallowsTheKey) {
  handler.onEditorKey = [&](std::int16_t&, std::int16_t) { grid->EndEdit(true); };
  grid->StartEdit(2, column::Start);
  press(Qt::Key_Down);
  EXPECT_FALSE(grid->isEditing());
  EXPECT_EQ(grid->ListIndex(), 2);
}

TEST_F(GridTest, AMoveThatIsRefusedStays) {
  handler.onAfterEdit = [](bool& cancel, std::string&) { cancel = true; };
  handler.onEditorKey = [&](std::int16_t& key, std::int16_t) {
    if (key == key_code::tab && grid->EndEdit(true)) grid->StartEdit(3, column::Aktuell);
  };
  grid->StartEdit(2, column::Start);
  type("x");
  press(Qt::Key_Tab);
  EXPECT_EQ(grid->ListIndex(), 2);
  ASSERT_TRUE(editorHasFocus());
  EXPECT_EQ(editor()->selectedText(), QStringLiteral("x"));
}

TEST_F(GridTest, StartEditWhileEditingKeepsTheFirstText) {
  grid->StartEdit(2, column::Start);
  type("31");
  grid->StartEdit(3, column::Start);
  EXPECT_EQ(grid->List(2, column::Start), "31");
  EXPECT_EQ(editor()->text(), QStringLiteral("1003"));
}

TEST_F(GridTest, StartEditWhileTheFirstTextIsRefusedOpensNothing) {
  handler.onAfterEdit = [](bool& cancel, std::string&) { cancel = true; };
  grid->StartEdit(2, column::Start);
  type("x");
  grid->StartEdit(3, column::Start);
  EXPECT_EQ(grid->ListIndex(), 2);
  EXPECT_EQ(editor()->text(), QStringLiteral("x"));
}

TEST_F(GridTest, TheFocusReturnsFromABoxToTheRefusedText) {
  handler.onAfterEdit = [&](bool& cancel, std::string&) {
    answerBox();
    QMessageBox::information(&window, QStringLiteral("Info"), QStringLiteral("Bitte"));
    cancel = true;
  };
  grid->StartEdit(2, column::Start);
  type("x");
  click(pictureOf(1));
  window.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
  EXPECT_TRUE(editorHasFocus());
  EXPECT_EQ(editor()->selectedText(), QStringLiteral("x"));
  EXPECT_EQ(events().back(), "edited 2 2 x");
}

TEST_F(GridTest, TheCellIsStillEditedWhileABoxIsUp) {
  std::string during;
  handler.onAfterEdit = [&](bool&, std::string&) {
    answerBox([&](QMessageBox&) {
      during = grid->List(2, column::Start);
      EXPECT_TRUE(grid->isEditing());
      EXPECT_FALSE(grid->EndEdit(true));
      QTest::mouseClick(view().viewport(), Qt::LeftButton, {}, textOf(5, column::Start));
      QTest::keyClick(editor(), Qt::Key_Return);
    });
    QMessageBox::information(&window, QStringLiteral("Info"), QStringLiteral("Bitte"));
  };
  grid->StartEdit(2, column::Start);
  type("6");
  (void)events();
  EXPECT_TRUE(grid->EndEdit(true));
  EXPECT_EQ(during, "1002");
  EXPECT_EQ(grid->List(2, column::Start), "6");
  EXPECT_EQ(events(), Lines{"edited 2 2 6"});
}

TEST_F(GridTest, AfterEditMaySetOtherCells) {
  handler.onAfterEdit = [&](bool&, std::string& text) { grid->List(2, column::Aktuell, text); };
  grid->StartEdit(2, column::Start);
  type("60");
  EXPECT_TRUE(grid->EndEdit(true));
  EXPECT_EQ(grid->List(2, column::Start), "60");
  EXPECT_EQ(grid->List(2, column::Aktuell), "60");
}

TEST_F(GridTest, AfterEditMayRebuildTheGrid) {
  handler.onAfterEdit = [&](bool&, std::string&) { rebuild(1, 3, 1); };
  grid->StartEdit(2, column::Start);
  type("60");
  EXPECT_TRUE(grid->EndEdit(true));
  EXPECT_FALSE(grid->isEditing());
  EXPECT_EQ(grid->List(2, column::Start), "1002");
  EXPECT_EQ(grid->ListIndex(), 1);
}

TEST_F(GridTest, AClickAfterWhichItsItemIsGoneMeansNothing) {
  handler.onAfterEdit = [&](bool&, std::string&) { grid->Clear(); };
  grid->StartEdit(2, column::Start);
  type("60");
  (void)events();
  click(textOf(3, column::Start));
  EXPECT_EQ(events(), Lines{"edited 2 2 60"});
}

TEST_F(GridTest, AfterEditThatFailsCountsAsEnded) {
  handler.onAfterEdit = [](bool& cancel, std::string&) {
    cancel = true;
    throw Error::typeMismatch();
  };
  grid->StartEdit(2, column::Start);
  type("60");
  EXPECT_TRUE(grid->EndEdit(true));
  EXPECT_FALSE(grid->isEditing());
  EXPECT_EQ(grid->List(2, column::Start), "60");
}

TEST_F(GridTest, AfterEditMayDropTheEdit) {
  handler.onAfterEdit = [&](bool& cancel, std::string&) {
    EXPECT_TRUE(grid->EndEdit(false));
    cancel = true;
  };
  grid->StartEdit(2, column::Start);
  type("60");
  EXPECT_TRUE(grid->EndEdit(true));
  EXPECT_EQ(grid->List(2, column::Start), "1002");
}

TEST_F(GridTest, AFailingKeyHandlerLeavesTheKeyToTheEditor) {
  handler.onEditorKey = [](std::int16_t&, std::int16_t) { throw Error::overflow(); };
  grid->StartEdit(2, column::Start);
  type("5");
  EXPECT_EQ(editor()->text(), QStringLiteral("5"));
}

TEST_F(GridTest, WithoutAListenerTheEditorWorksAlone) {
  grid->Events(nullptr);
  grid->StartEdit(2, column::Start);
  type("5");
  press(Qt::Key_Return);
  EXPECT_EQ(grid->List(2, column::Start), "5");
  click(textOf(3, column::Start));
  EXPECT_EQ(grid->ListIndex(), 3);
}

TEST_F(GridTest, TheGridMayGoBeforeItsWidget) {
  grid->StartEdit(2, column::Start);
  QWidget* widget = grid->widget();
  grid.reset();
  QTest::keyClick(widget, Qt::Key_Down);
  QCoreApplication::processEvents();
  EXPECT_TRUE(widget->isVisible());
}

TEST_F(GridTest, TheWidgetMayGoBeforeItsGrid) {
  grid->StartEdit(2, column::Start);
  delete grid->widget();
  EXPECT_FALSE(grid->isEditing());
  EXPECT_TRUE(grid->EndEdit(true));
  EXPECT_THROW((void)grid->ListCount(), Error);
}

}  // namespace
}  // namespace vexnumkr::test
