// The context menus of the editor and of the scroll bars speak German by themselves.
#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QMenu>
#include <QScrollBar>

#include "gui/grid/grid_fixture.h"

namespace vexnumkr::test {
namespace {

class GridMenusTest : public GridTest {
 protected:
  ~GridMenusTest() override { closeMenu(); }

  /// Opens the context menu of `widget`, as a right click at `place` does.
  QMenu& openMenu(QWidget& widget, const QPoint& place) {
    QContextMenuEvent event(QContextMenuEvent::Mouse, place, widget.mapToGlobal(place));
    QApplication::sendEvent(&widget, &event);
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    if (menu == nullptr) throw std::runtime_error("no menu has come up");
    return *menu;
  }
  QMenu& openEditorMenu() { return openMenu(*editor(), editor()->rect().center()); }

  static void closeMenu() {
    if (QWidget* menu = QApplication::activePopupWidget()) menu->close();
  }

  static Lines captions(const QMenu& menu) {
    Lines lines;
    for (const QAction* action : menu.actions())
      if (!action->isSeparator()) lines.push_back(caption(*action));
    return lines;
  }

  static Lines enabled(const QMenu& menu) {
    Lines lines;
    for (const QAction* action : menu.actions())
      if (!action->isSeparator() && action->isEnabled()) lines.push_back(caption(*action));
    return lines;
  }

  static void choose(const QMenu& menu, const std::string& wanted) {
    for (QAction* action : menu.actions()) {
      if (caption(*action) == wanted) return action->trigger();
    }
    ADD_FAILURE() << "the menu does not offer " << wanted;
  }

 private:
  static std::string caption(const QAction& action) {
    return action.text().remove(QLatin1Char('&')).section(QLatin1Char('\t'), 0, 0).toStdString();
  }
};

TEST_F(GridMenusTest, TheEditorOffersItsCommands) {
  grid->StartEdit(2, column::Start);
  EXPECT_EQ(captions(openEditorMenu()),
            (Lines{"Rückgängig", "Wiederherstellen", "Ausschneiden", "Kopieren", "Einfügen",
                   "Löschen", "Alles markieren"}));
}

TEST_F(GridMenusTest, TheEditorOffersWhatCanBeDone) {
  QApplication::clipboard()->clear();
  grid->StartEdit(2, column::Start);
  EXPECT_EQ(enabled(openEditorMenu()), (Lines{"Ausschneiden", "Kopieren", "Löschen"}));
  closeMenu();
  QApplication::clipboard()->setText(QStringLiteral("7"));
  editor()->deselect();
  EXPECT_EQ(enabled(openEditorMenu()), (Lines{"Einfügen", "Alles markieren"}));
  closeMenu();
  type("55");
  EXPECT_EQ(enabled(openEditorMenu()), (Lines{"Rückgängig", "Einfügen", "Alles markieren"}));
}

TEST_F(GridMenusTest, TheEditorObeysItsCommands) {
  grid->StartEdit(2, column::Start);
  choose(openEditorMenu(), "Ausschneiden");
  closeMenu();
  EXPECT_EQ(editor()->text(), QString());
  choose(openEditorMenu(), "Einfügen");
  closeMenu();
  EXPECT_EQ(editor()->text(), QStringLiteral("1002"));
  choose(openEditorMenu(), "Rückgängig");
  closeMenu();
  EXPECT_EQ(editor()->text(), QString());
  choose(openEditorMenu(), "Wiederherstellen");
  closeMenu();
  EXPECT_EQ(editor()->text(), QStringLiteral("1002"));
  choose(openEditorMenu(), "Alles markieren");
  closeMenu();
  EXPECT_EQ(editor()->selectedText(), QStringLiteral("1002"));
  choose(openEditorMenu(), "Kopieren");
  closeMenu();
  choose(openEditorMenu(), "Löschen");
  EXPECT_EQ(editor()->text(), QString());
  EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("1002"));
}

TEST_F(GridMenusTest, TheMenuLeavesTheEditOpen) {
  grid->StartEdit(2, column::Start);
  openEditorMenu();
  EXPECT_TRUE(grid->isEditing());
  closeMenu();
  EXPECT_TRUE(grid->isEditing());
  EXPECT_EQ(events(), Lines{});
}

TEST_F(GridMenusTest, TheScrollBarOffersItsCommands) {
  rebuild(20, 3, -1);
  QCoreApplication::processEvents();
  QScrollBar& bar = *view().verticalScrollBar();
  const QPoint middle = bar.rect().center();
  EXPECT_EQ(captions(openMenu(bar, middle)),
            (Lines{"Hierher scrollen", "Anfang", "Ende", "Eine Seite nach oben",
                   "Eine Seite nach unten", "Nach oben scrollen", "Nach unten scrollen"}));
  closeMenu();
  EXPECT_EQ(captions(openMenu(*view().horizontalScrollBar(), {5, 5})),
            (Lines{"Hierher scrollen", "Linker Rand", "Rechter Rand", "Eine Seite nach links",
                   "Eine Seite nach rechts", "Nach links scrollen", "Nach rechts scrollen"}));
}

TEST_F(GridMenusTest, TheScrollBarObeysItsCommands) {
  rebuild(20, 3, -1);
  QCoreApplication::processEvents();
  QScrollBar& bar = *view().verticalScrollBar();
  const auto command = [&](const char* name) {
    choose(openMenu(bar, bar.rect().center()), name);
    closeMenu();
    return bar.value();
  };
  EXPECT_EQ(command("Ende"), bar.maximum());
  EXPECT_EQ(command("Eine Seite nach oben"), bar.maximum() - bar.pageStep());
  EXPECT_EQ(command("Anfang"), 0);
  EXPECT_EQ(command("Nach unten scrollen"), bar.singleStep());
  EXPECT_EQ(command("Nach oben scrollen"), 0);
  EXPECT_EQ(command("Eine Seite nach unten"), bar.pageStep());
  EXPECT_NEAR(command("Hierher scrollen"), bar.maximum() / 2, bar.maximum() / 20);
}

TEST_F(GridMenusTest, MenusHaveTheFontOfTheirPlace) {
  grid->SetFont({"Liberation Serif", 15, false});
  grid->ItemEditFont({"Liberation Serif", 15, false});
  grid->StartEdit(2, column::Start);
  EXPECT_EQ(openEditorMenu().font().family(), QStringLiteral("Liberation Serif"));
  closeMenu();
  rebuild(20, 5, -1);
  QScrollBar& bar = *view().verticalScrollBar();
  EXPECT_EQ(openMenu(bar, bar.rect().center()).font().pixelSize(), 20);
}

TEST_F(GridMenusTest, ARowOffersItsCommands) {
  QGuiApplication::clipboard()->setText(QStringLiteral("1\t2"));
  click(textOf(2, column::Start), Qt::RightButton);
  QMenu& menu = *qobject_cast<QMenu*>(QApplication::activePopupWidget());
  EXPECT_EQ(captions(menu),
            (Lines{"Bearbeiten", "Kopieren", "Einfügen", "Alle aufklappen", "Alle zuklappen"}));
  EXPECT_EQ(enabled(menu), captions(menu));
  EXPECT_EQ(grid->ListIndex(), 2);
  choose(menu, "Kopieren");
  EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("Filiale 1\t1002\t\t\t"));
  events();
  choose(menu, "Bearbeiten");
  EXPECT_EQ(events(), Lines{"key 113"});
  choose(menu, "Alle zuklappen");
  EXPECT_FALSE(inSight(2));
  choose(menu, "Alle aufklappen");
  EXPECT_TRUE(inSight(2));
}

TEST_F(GridMenusTest, WhatCannotBeDoneToARowIsNotOffered) {
  QGuiApplication::clipboard()->clear();
  const auto offered = [&](int item) {
    click(textOf(item, column::Beschreibung), Qt::RightButton);
    const Lines lines = enabled(*qobject_cast<QMenu*>(QApplication::activePopupWidget()));
    closeMenu();
    return lines;
  };
  EXPECT_EQ(offered(2), (Lines{"Bearbeiten", "Kopieren", "Alle aufklappen", "Alle zuklappen"}));
  EXPECT_EQ(offered(0), (Lines{"Kopieren", "Alle aufklappen", "Alle zuklappen"}));
  grid->AcceptsEntries(false);
  EXPECT_EQ(offered(2), (Lines{"Kopieren", "Alle aufklappen", "Alle zuklappen"}));
}

TEST_F(GridMenusTest, TheMenuKeyOpensItOnTheCurrentRow) {
  grid->ListIndex(2);
  QContextMenuEvent wanted(QContextMenuEvent::Keyboard, QPoint(), QPoint());
  QApplication::sendEvent(view().viewport(), &wanted);
  const QWidget* menu = QApplication::activePopupWidget();
  ASSERT_NE(menu, nullptr);
  const QPoint corner = view().viewport()->mapFromGlobal(menu->pos());
  EXPECT_NEAR(corner.y(), cellRect(2, column::Beschreibung).bottom(), 3);
}

TEST_F(GridMenusTest, WhereAnEntryStaysOpenThereIsNoMenu) {
  handler.onAfterEdit = [](bool& cancel, std::string&) { cancel = true; };
  grid->StartEdit(2, column::Start);
  type("x");
  click(textOf(3, column::Start), Qt::RightButton);
  EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
  EXPECT_TRUE(editorHasFocus());
}

}  // namespace
}  // namespace vexnumkr::test
