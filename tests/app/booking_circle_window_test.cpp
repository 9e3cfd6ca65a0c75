#include <gtest/gtest.h>

#include <QtTest/QTest>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QMessageBox>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QTreeWidget>

#include <vexnumkr/error.h>

#include "app/components/booking_circle_administration.h"
#include "app/expected_windows.h"
#include "app/sample_database.h"

namespace vexnumkr::host {
namespace {

using test::child;
using test::click;
using test::Row;
using test::typeInto;

constexpr std::int32_t selectionNumber = 27;

class CircleWindow : public testing::Test {
 protected:
  CircleWindow() { administration_.Connection(connection_); }

  /// Shows the administration of ORB, plays `act` in it and closes it.
  void inWindow(const std::function<void(QDialog&)>& act) {
    windows_.expect("frmBuchungskreise", [act](QDialog& window) {
      act(window);
      click(window, "cmdSchliessen");
    });
    administration_.Show("ORB", selectionNumber);
  }

  /// Announces the editor: types what is given and presses `button`.
  void expectEditor(const QString& number, const QString& description, const char* button) {
    windows_.expect("frmBuchungskreis", [=](QDialog& editor) {
      if (!number.isNull()) typeInto(editor, "txtNummer", number);
      if (!description.isNull()) typeInto(editor, "txtBeschreibung", description);
      click(editor, button);
    });
  }

  void expectBox(const char* button, std::function<void(QMessageBox&)> look) {
    windows_.expect("msgBox", [=](QDialog& box) {
      look(static_cast<QMessageBox&>(box));
      click(box, button);
    });
  }

  static std::vector<Row> lines(QDialog& window) {
    auto& list = child<QTreeWidget>(window, "lstBuchungskreise");
    std::vector<Row> found;
    for (int line = 0; line < list.topLevelItemCount(); ++line) {
      const QTreeWidgetItem* item = list.topLevelItem(line);
      found.push_back({item->text(0).toStdString(), item->text(1).toStdString()});
    }
    return found;
  }

  static void choose(QDialog& window, int line) {
    auto& list = child<QTreeWidget>(window, "lstBuchungskreise");
    const QRect place = list.visualItemRect(list.topLevelItem(line));
    QTest::mouseClick(list.viewport(), Qt::LeftButton, Qt::NoModifier, place.center());
  }

  static std::string current(QDialog& window) {
    const QTreeWidgetItem* item = child<QTreeWidget>(window, "lstBuchungskreise").currentItem();
    return item == nullptr ? "" : item->text(0).toStdString();
  }

  const std::vector<Row> sample_ = {{"1", "Zentrale Ulm"},
                                    {"2", "Niederlassung Dresden"},
                                    {"3", "Onlinehandel"},
                                    {"4", "Werkstatt"},
                                    {"5", "Messeverkauf"}};
  test::SampleDatabase database_;
  std::shared_ptr<Connection> connection_ = database_.connect();
  BookingCircleAdministration administration_;
  test::ExpectedWindows windows_;
};

TEST_F(CircleWindow, ListsTheOriginsCirclesWithTheirActiveKeys) {
  inWindow([&](QDialog& window) {
    EXPECT_EQ(window.windowTitle(), QStringLiteral("Buchungskreise"));
    EXPECT_EQ(lines(window), sample_);
    EXPECT_EQ(current(window), "1");
    const auto& list = child<QTreeWidget>(window, "lstBuchungskreise");
    EXPECT_EQ(list.topLevelItem(3)->text(2), QStringLiteral("AB, AN, KV, RP"));
    EXPECT_EQ(list.topLevelItem(4)->text(2), QString());
  });
}

TEST_F(CircleWindow, AddsACircle) {
  inWindow([&](QDialog& window) {
    windows_.expect("frmBuchungskreis", [&](QDialog& editor) {
      EXPECT_EQ(child<QLineEdit>(editor, "txtNummer").text(), QStringLiteral("6"));
      test::typeText(*QApplication::focusWidget(), QStringLiteral(" Lager Süd "));
      QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    });
    click(window, "cmdNeu");
    auto expected = sample_;
    expected.push_back({"6", "Lager Süd"});
    EXPECT_EQ(lines(window), expected);
    EXPECT_EQ(current(window), "6");
  });
  EXPECT_EQ(database_.rows("SELECT * FROM Nummernkreis_Buchungskreise WHERE Buchungskreis = 6"),
            (std::vector<Row>{{"6", "Lager Süd", "ORB"}}));
}

TEST_F(CircleWindow, AddsACircleWithAQuote) {
  inWindow([&](QDialog& window) {
    expectEditor(QStringLiteral("9"), QStringLiteral("Harry's"), "cmdOK");
    click(window, "cmdNeu");
    EXPECT_EQ(lines(window).back(), (Row{"9", "Harry's"}));
  });
}

TEST_F(CircleWindow, SaysWhatItDoesNotAccept) {
  inWindow([&](QDialog& window) {
    windows_.expect("frmBuchungskreis", [&](QDialog& editor) {
      const auto& hint = child<QLabel>(editor, "lblHinweis");
      const auto& ok = child<QPushButton>(editor, "cmdOK");
      EXPECT_EQ(hint.text(), QStringLiteral("Die Beschreibung darf nicht leer sein."));
      EXPECT_FALSE(ok.isEnabled());
      typeInto(editor, "txtBeschreibung", QStringLiteral("Werkstatt"));
      EXPECT_EQ(hint.text(), QStringLiteral("Der Buchungskreis 4 heißt schon so."));
      EXPECT_FALSE(ok.isEnabled());
      typeInto(editor, "txtBeschreibung", QStringLiteral("Lager"));
      EXPECT_EQ(hint.text(), QString());
      EXPECT_TRUE(ok.isEnabled());
      typeInto(editor, "txtNummer", QStringLiteral("3"));
      EXPECT_EQ(hint.text(), QStringLiteral("Die Nummer 3 ist schon vergeben."));
      EXPECT_FALSE(ok.isEnabled());
      QTest::keyClick(&child<QLineEdit>(editor, "txtNummer"), Qt::Key_Return);
      EXPECT_TRUE(editor.isVisible());
      click(editor, "cmdCancel");
    });
    click(window, "cmdNeu");
    EXPECT_EQ(lines(window), sample_);
  });
}

TEST_F(CircleWindow, RenamesACircle) {
  inWindow([&](QDialog& window) {
    choose(window, 2);
    windows_.expect("frmBuchungskreis", [&](QDialog& editor) {
      EXPECT_EQ(editor.windowTitle(), QStringLiteral("Buchungskreis umbenennen"));
      EXPECT_EQ(child<QLineEdit>(editor, "txtNummer").text(), QStringLiteral("3"));
      EXPECT_FALSE(child<QLineEdit>(editor, "txtNummer").isEnabled());
      EXPECT_EQ(child<QLineEdit>(editor, "txtBeschreibung").text(), QStringLiteral("Onlinehandel"));
      typeInto(editor, "txtBeschreibung", QStringLiteral("Webshop"));
      click(editor, "cmdOK");
    });
    click(window, "cmdUmbenennen");
    EXPECT_EQ(lines(window)[2], (Row{"3", "Webshop"}));
    EXPECT_EQ(current(window), "3");
  });
  // The other origin keeps its own name for the shared number.
  EXPECT_EQ(database_.rows("SELECT Herkunft, Beschreibung FROM Nummernkreis_Buchungskreise WHERE "
                           "Buchungskreis = 3 ORDER BY Herkunft"),
            (std::vector<Row>{{"ORB", "Webshop"}, {"ORC", "Onlinehandel"}}));
}

TEST_F(CircleWindow, RemovesACircleWithoutActiveRangesAtOnce) {
  inWindow([&](QDialog& window) {
    choose(window, 4);
    click(window, "cmdEntfernen");
    EXPECT_EQ(lines(window), (std::vector<Row>{sample_.begin(), sample_.end() - 1}));
    EXPECT_EQ(current(window), "4");
  });
}

TEST_F(CircleWindow, AsksBeforeItRemovesACircleWithActiveRanges) {
  inWindow([&](QDialog& window) {
    choose(window, 3);
    const auto look = [](QMessageBox& box) {
      EXPECT_EQ(box.windowTitle(), QStringLiteral("Buchungskreis entfernen"));
      EXPECT_EQ(
          box.text(),
          QStringLiteral("Im Buchungskreis 4 sind noch Nummernkreise aktiv (AB, AN, KV, RP).\n"
                         "Soll er trotzdem entfernt werden?"));
    };
    expectBox("no", look);
    click(window, "cmdEntfernen");
    EXPECT_EQ(lines(window), sample_);
    expectBox("yes", look);
    click(window, "cmdEntfernen");
    auto expected = sample_;
    expected.erase(expected.begin() + 3);
    EXPECT_EQ(lines(window), expected);
    EXPECT_EQ(current(window), "5");
  });
}

TEST_F(CircleWindow, IsWorkedByKeys) {
  inWindow([&](QDialog& window) {
    auto& list = child<QTreeWidget>(window, "lstBuchungskreise");
    ASSERT_EQ(QApplication::focusWidget(), &list);
    QTest::keyClick(&list, Qt::Key_End);
    QTest::keyClick(&list, Qt::Key_Delete);
    expectEditor({}, QStringLiteral("Lager"), "cmdOK");
    QTest::keyClick(&list, Qt::Key_Insert);
    // The offscreen platform has no window manager that would do this when the editor has closed.
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    expectEditor({}, QStringLiteral("Außenlager"), "cmdOK");
    QTest::keyClick(&list, Qt::Key_F2);
    EXPECT_EQ(lines(window).back(), (Row{"5", "Außenlager"}));
  });
}

TEST_F(CircleWindow, ClosesByEscape) {
  windows_.expect("frmBuchungskreise",
                  [](QDialog& window) { QTest::keyClick(&window, Qt::Key_Escape); });
  administration_.Show("ORB", selectionNumber);
}

TEST_F(CircleWindow, WorksInsideTheRunningTransaction) {
  connection_->BeginTrans();
  inWindow([&](QDialog& window) {
    expectEditor({}, QStringLiteral("Lager"), "cmdOK");
    click(window, "cmdNeu");
    choose(window, 4);
    click(window, "cmdEntfernen");
  });
  EXPECT_EQ(database_.rows("SELECT COUNT(*) FROM Nummernkreis_Buchungskreise"),
            (std::vector<Row>{{"8"}}));
  connection_->RollbackTrans();
  inWindow([&](QDialog& window) { EXPECT_EQ(lines(window), sample_); });
}

TEST_F(CircleWindow, ReportsAFailedChangeAndGoesOn) {
  database_.run(
      "CREATE TRIGGER t BEFORE INSERT ON Nummernkreis_Buchungskreise BEGIN "
      "SELECT RAISE(ABORT, 'Nicht erlaubt'); END");
  connection_->BeginTrans();
  inWindow([&](QDialog& window) {
    expectEditor({}, QStringLiteral("Lager"), "cmdOK");
    expectBox("ok", [](QMessageBox& box) {
      EXPECT_EQ(box.windowTitle(), QStringLiteral("Fehler 1811"));
      EXPECT_TRUE(box.text().contains(QStringLiteral("Nicht erlaubt"))) << box.text().toStdString();
    });
    click(window, "cmdNeu");
    EXPECT_EQ(lines(window), sample_);
    choose(window, 4);
    click(window, "cmdEntfernen");
    EXPECT_EQ(lines(window).size(), 4U);
  });
  connection_->CommitTrans();
  EXPECT_EQ(database_.rows("SELECT COUNT(*) FROM Nummernkreis_Buchungskreise WHERE Herkunft='ORB'"),
            (std::vector<Row>{{"4"}}));
}

TEST_F(CircleWindow, OfAnEmptyOriginOffersOnlyToAdd) {
  windows_.expect("frmBuchungskreise", [&](QDialog& window) {
    EXPECT_EQ(lines(window), std::vector<Row>{});
    EXPECT_TRUE(child<QPushButton>(window, "cmdNeu").isEnabled());
    EXPECT_FALSE(child<QPushButton>(window, "cmdUmbenennen").isEnabled());
    EXPECT_FALSE(child<QPushButton>(window, "cmdEntfernen").isEnabled());
    click(window, "cmdSchliessen");
  });
  administration_.Show("", selectionNumber);
}

TEST_F(CircleWindow, RemovesSeveralCirclesWhereThatIsAllowed) {
  administration_.MultiSelect(true);
  database_.run("UPDATE Nummernkreise SET Aktiviert = 0");
  inWindow([&](QDialog& window) {
    auto& list = child<QTreeWidget>(window, "lstBuchungskreise");
    QTest::keyClick(&list, Qt::Key_Home);
    QTest::keyClick(&list, Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_FALSE(child<QPushButton>(window, "cmdUmbenennen").isEnabled());
    click(window, "cmdEntfernen");
    EXPECT_EQ(lines(window), (std::vector<Row>{sample_.begin() + 2, sample_.end()}));
  });
}

TEST_F(CircleWindow, FailsWhenTheCirclesCannotBeRead) {
  database_.run("DROP TABLE Nummernkreis_Buchungskreise");
  EXPECT_THROW(administration_.Show("ORB", selectionNumber), Error);
}

TEST_F(CircleWindow, FailsWithoutAConnection) {
  BookingCircleAdministration unconnected;
  try {
    unconnected.Show("ORB", selectionNumber);
    ADD_FAILURE() << "shown without a connection";
  } catch (const Error& error) {
    EXPECT_EQ(error.number(), 91);
  }
}

TEST_F(CircleWindow, GivesEveryControlAName) {
  inWindow([&](QDialog& window) {
    for (const QPushButton* button : window.findChildren<QPushButton*>()) {
      EXPECT_FALSE(button->objectName().isEmpty()) << button->text().toStdString();
    }
    windows_.expect("frmBuchungskreis", [](QDialog& editor) {
      for (const QPushButton* button : editor.findChildren<QPushButton*>()) {
        EXPECT_FALSE(button->objectName().isEmpty()) << button->text().toStdString();
      }
      click(editor, "cmdCancel");
    });
    click(window, "cmdNeu");
  });
}

}  // namespace
}  // namespace vexnumkr::host
