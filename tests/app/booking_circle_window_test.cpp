#include <gtest/gtest.h>

#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QStyledItemDelegate>
#include <QTest>
#include <QTreeWidget>
#include <array>

#include <vexnumkr/error.h>

#include "app/components/booking_circle_administration.h"
#include "app/expected_windows.h"
#include "app/sample_database.h"

namespace vexnumkr::app {
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
      EXPECT_EQ(hint.text(), QString()) << "nothing has been entered yet";
      EXPECT_FALSE(ok.isEnabled());
      EXPECT_TRUE(ok.icon().isNull());
      typeInto(editor, "txtBeschreibung", QStringLiteral(" "));
      EXPECT_EQ(hint.text(), QStringLiteral("Die Beschreibung darf nicht leer sein."));
      EXPECT_FALSE(ok.isEnabled());
      typeInto(editor, "txtBeschreibung", QString(75, QLatin1Char('x')));
      EXPECT_EQ(hint.text(), QStringLiteral("Die Beschreibung darf höchstens 60 Zeichen haben, "
                                            "nicht 75."));
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
          QStringLiteral(
              "Im Buchungskreis 4 (Werkstatt) sind noch Nummernkreise aktiv: AB, AN, KV, RP.\n"
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

TEST_F(CircleWindow, EnterAndEscapeDoNotRemoveACircleWithActiveRanges) {
  inWindow([&](QDialog& window) {
    choose(window, 3);
    windows_.expect("msgBox", [](QDialog& box) { QTest::keyClick(&box, Qt::Key_Return); });
    click(window, "cmdEntfernen");
    EXPECT_EQ(lines(window), sample_);
    windows_.expect("msgBox", [](QDialog& box) { QTest::keyClick(&box, Qt::Key_Escape); });
    click(window, "cmdEntfernen");
    EXPECT_EQ(lines(window), sample_);
    windows_.expect("msgBox", [](QDialog& box) {
      EXPECT_TRUE(child<QPushButton>(box, "no").isDefault());
      click(box, "yes");
    });
    click(window, "cmdEntfernen");
    EXPECT_EQ(lines(window).size(), sample_.size() - 1);
  });
}

TEST_F(CircleWindow, RefusesEveryEntryThatTheFilterCouldNotTellApart) {
  const std::vector<std::array<const char*, 3>> entries = {
      {"7", "", "Die Beschreibung darf nicht leer sein."},
      {"7", "   ", "Die Beschreibung darf nicht leer sein."},
      {"7", "Alle Buchungskreise",
       "\"Alle Buchungskreise\" hat eine feste Bedeutung und kann keine Beschreibung sein."},
      {"7", " Aktive Buchungskreise ",
       "\"Aktive Buchungskreise\" hat eine feste Bedeutung und kann keine Beschreibung sein."},
      {"7", "Standard", "\"Standard\" hat eine feste Bedeutung und kann keine Beschreibung sein."},
      {"7", "Onlinehandel", "Der Buchungskreis 3 heißt schon so."},
      {"0", "Lager", "Die Nummer muss eine ganze Zahl ab 1 sein."},
      {"", "Lager", "Die Nummer muss eine ganze Zahl ab 1 sein."},
      {"-1", "Lager", "Die Nummer muss eine ganze Zahl ab 1 sein."},
      {"1,5", "Lager", "Die Nummer muss eine ganze Zahl ab 1 sein."},
      {"4294967297", "Lager", "Die Nummer darf höchstens 2147483647 sein."},
      {"99999999999", "Lager", "Die Nummer darf höchstens 2147483647 sein."},
      {"1", "Lager", "Die Nummer 1 ist schon vergeben."}};
  inWindow([&](QDialog& window) {
    windows_.expect("frmBuchungskreis", [&](QDialog& editor) {
      for (const auto& [number, description, hint] : entries) {
        typeInto(editor, "txtNummer", QString::fromUtf8(number));
        typeInto(editor, "txtBeschreibung", QString::fromUtf8(description));
        EXPECT_EQ(child<QLabel>(editor, "lblHinweis").text(), QString::fromUtf8(hint));
        EXPECT_FALSE(child<QPushButton>(editor, "cmdOK").isEnabled()) << description;
        QTest::keyClick(&child<QLineEdit>(editor, "txtBeschreibung"), Qt::Key_Return);
        EXPECT_TRUE(editor.isVisible());
      }
      QTest::keyClick(&editor, Qt::Key_Escape);
    });
    click(window, "cmdNeu");
    EXPECT_EQ(lines(window), sample_);
  });
}

TEST_F(CircleWindow, RefusesTheSameWhenRenaming) {
  inWindow([&](QDialog& window) {
    choose(window, 1);
    windows_.expect("frmBuchungskreis", [&](QDialog& editor) {
      EXPECT_TRUE(child<QPushButton>(editor, "cmdOK").isEnabled()) << "its own name may stay";
      for (const char* description : {"", "Standard", "Werkstatt"}) {
        typeInto(editor, "txtBeschreibung", QString::fromUtf8(description));
        EXPECT_FALSE(child<QPushButton>(editor, "cmdOK").isEnabled()) << description;
      }
      click(editor, "cmdCancel");
    });
    click(window, "cmdUmbenennen");
    EXPECT_EQ(lines(window), sample_);
  });
}

TEST_F(CircleWindow, ADoubleClickRenames) {
  inWindow([&](QDialog& window) {
    expectEditor({}, QStringLiteral("Dresden"), "cmdOK");
    auto& list = child<QTreeWidget>(window, "lstBuchungskreise");
    const QPoint place = list.visualItemRect(list.topLevelItem(1)).center();
    QTest::mouseClick(list.viewport(), Qt::LeftButton, Qt::NoModifier, place);
    QTest::mouseDClick(list.viewport(), Qt::LeftButton, Qt::NoModifier, place);
    EXPECT_EQ(lines(window)[1], (Row{"2", "Dresden"}));
  });
}

TEST_F(CircleWindow, TabVisitsTheListAndEveryButton) {
  inWindow([](QDialog&) {
    std::vector<std::string> visited;
    for (int i = 0; i < 5; ++i) {
      visited.push_back(QApplication::focusWidget()->objectName().toStdString());
      QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
    EXPECT_EQ(visited, (std::vector<std::string>{"lstBuchungskreise", "cmdNeu", "cmdUmbenennen",
                                                 "cmdEntfernen", "cmdSchliessen"}));
    EXPECT_EQ(QApplication::focusWidget()->objectName(), QStringLiteral("lstBuchungskreise"));
  });
}

TEST_F(CircleWindow, SaysWhenItsChangesAreSaved) {
  inWindow([&](QDialog& window) {
    const auto& hint = child<QLabel>(window, "lblHinweis");
    EXPECT_EQ(hint.text(), QStringLiteral("Die Änderungen werden erst mit dem Dialog "
                                          "\"Nummernkreise\" gespeichert."));
    database_.run("UPDATE Nummernkreise SET Aktiviert = 0");
    for (std::size_t i = 0; i < sample_.size(); ++i) click(window, "cmdEntfernen");
    EXPECT_EQ(lines(window), std::vector<Row>{});
    EXPECT_EQ(
        hint.text(),
        QStringLiteral("Es gibt noch keinen Buchungskreis. Mit \"Neu …\" legen Sie einen an."));
    EXPECT_FALSE(child<QPushButton>(window, "cmdEntfernen").isEnabled());
  });
}

TEST_F(CircleWindow, NothingIsCutOff) {
  database_.run(
      "INSERT INTO Nummernkreis_Buchungskreise VALUES (2147483647, "
      "'Eine Beschreibung, die so lang ist, wie sie überhaupt sein darf', 'ORB')");
  inWindow([&](QDialog& window) {
    const auto& list = child<QTreeWidget>(window, "lstBuchungskreise");
    for (const int column : {0, 1})
      EXPECT_GE(list.columnWidth(column),
                static_cast<const QAbstractItemView&>(list).sizeHintForColumn(column));
    for (const QPushButton* each : window.findChildren<QPushButton*>())
      EXPECT_GE(each->width(), each->sizeHint().width()) << each->text().toStdString();
    const auto& numbers = dynamic_cast<QStyledItemDelegate&>(*list.itemDelegateForColumn(0));
    EXPECT_EQ(numbers.displayText(2147483647, QLocale(QLocale::German)).trimmed(),
              QStringLiteral("2147483647"));
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
}  // namespace vexnumkr::app
